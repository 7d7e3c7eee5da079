#include "check/texts.h"

namespace hublink::check {

const Texts& textsOf(LANGID language)
{
    return PRIMARYLANGID(language) == LANG_FRENCH ? french : english;
}

}

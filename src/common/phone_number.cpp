#include "common/phone_number.h"

namespace hublink {

std::wstring StripPhoneNumber(const std::wstring& szNumber)
{
    std::wstring stripped = szNumber;
    std::erase(stripped, L'.');
    std::erase(stripped, L' ');
    return stripped;
}

}

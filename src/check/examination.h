// Looks at everything that Hublink would find, and changes nothing.
#pragma once

#include "check/report.h"
#include "check/texts.h"

#include <string>

namespace hublink::check {

struct Examination {
    std::wstring programFolder; // Hublink's, without a trailing backslash
    std::wstring version;
    bool listsMap = false;
};

Report examine(const Examination& examination, const Texts& texts);

}

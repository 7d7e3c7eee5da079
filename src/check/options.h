// What the program was started for.
#pragma once

#include "check/report.h"

#include <windows.h>

#include <optional>
#include <string>
#include <vector>

namespace hublink::check {

struct Options {
    std::wstring saveTo; // "" for nowhere
    Names savedNames = Names::hidden;
    bool listsMap = false;
    bool asksForHelp = false;
    std::optional<LANGID> language; // the user's own without it
    std::optional<std::wstring> notUnderstood; // what makes the command line wrong
};

// `arguments` without the program's name.
Options optionsOf(const std::vector<std::wstring>& arguments);

}

// The project's own sources, as its rules are checked on them.
#pragma once

#include <map>
#include <string>

namespace layering {

// Source files by path from the project's root ("src/shell/log.cpp"), with
// their text.
using Files = std::map<std::string, std::string>;

// All files below a folder of the project.
void readFolder(const std::string& folder, Files& files);

}

// The arrows between the rooms: which #include lines are allowed.
#pragma once

#include "source_files.h"

#include <string>
#include <vector>

namespace layering {

// Everything that breaks the rules, in words; empty when nothing does.
//  - A room includes only itself and the rooms further down.
//  - Files of the program are included by their path from src/.
//  - No two headers of a room include each other, on whatever detour.
std::vector<std::string> violations(const Files& files);

// The paths that a text's #include "..." lines name.
std::vector<std::string> includesOf(const std::string& text);

}

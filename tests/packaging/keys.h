// The keys of the settings as the default ini file and its documentation name them.
#pragma once

#include <map>
#include <set>
#include <string>

namespace packaging {

using Keys = std::set<std::string>;
using Sections = std::map<std::string, Keys>;

// Of an ini file's text.
Sections keysOfIni(const std::string& text);

// Of docs/settings.md: the first column of each table below a heading with a section's name.
Sections keysOfPage(const std::string& text);

}

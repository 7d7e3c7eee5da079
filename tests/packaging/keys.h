// The keys of the settings as the three that name them do: the default ini file, its
// documentation and the sources that read them.
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

// Of a source: what it hands to read, readSwitch and number as a key. A constant stands for its text.
Keys keysOfSource(const std::string& text);

// All of all sections together.
Keys together(const Sections& sections);

}

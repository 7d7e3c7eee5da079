// Texts are UTF-16 inside the program, as COM has them. Files, the registry
// and the profile functions speak the system's ANSI code page.
#pragma once

#include <string>
#include <string_view>

namespace automation {

// To the ANSI code page; what it cannot express becomes its default character.
std::string toAnsi(std::wstring_view text);

// From the ANSI code page.
std::wstring toWide(std::string_view text);

// Whether the texts differ in nothing but the case of letters, as file names
// and the names of COM members may.
bool equalIgnoringCase(std::wstring_view a, std::wstring_view b);

}

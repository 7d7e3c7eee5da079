// An ini file as it was written: what the profile functions do not report, such as what
// stands twice, in which line, and in which encoding.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace hublink::check {

enum class Encoding { ansi, utf8, utf8WithMark, utf16, utf16Reversed, noText };

struct IniLine {
    std::wstring name; // of a section or a key, as it stands there
    std::size_t line;  // from 1 on
    std::size_t valueSize = 0; // of a key: bytes, or characters of UTF-16
};

struct IniSection : IniLine {
    std::vector<IniLine> keys;
};

struct IniDocument {
    Encoding encoding = Encoding::ansi;
    std::vector<IniSection> sections;     // in their order, also those of one name
    std::vector<std::size_t> strayLines;  // which are none of comment, section and key
    std::vector<std::size_t> controlLines; // which hold characters that no text needs
    bool markHidesLine = false;           // UTF-8's mark, and behind it more than a comment
    bool losesCharacters = false;         // UTF-16 with some that the ANSI code page lacks
};

// Never fails, whatever the bytes are. Keys before the first section are stray lines.
IniDocument parseIni(std::string_view bytes);

}

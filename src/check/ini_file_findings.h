// The ini file as a file: whether it is there, can be read, and is written as it should
// be. What its values mean is ini_values.h's.
#pragma once

#include "check/finding.h"
#include "check/ini_document.h"
#include "check/texts.h"

#include <string>

namespace hublink::check {

struct IniPlace {
    std::wstring connectorFolder; // "" while the softphone's folder is unknown
    std::wstring file;            // then where Hublink looks all the same, without a drive
    std::wstring defaultFile;     // beside the program, "" when it is not there
};

// A larger one holds no settings; it is not read.
inline constexpr std::size_t maxIniSize = 4 * 1024 * 1024;

struct IniReading {
    std::wstring file; // that was read: before the first start the default one; "" for none
    IniDocument document;
};

// Adds to `findings` what is wrong with the place, if anything.
IniReading readIni(const IniPlace& place, const IniTexts& texts, Findings& findings);

// How it is written: encoding, lines, what stands twice, what nobody knows. `books` is
// the number of address books that count.
Findings writingFindings(const IniDocument& document, int books, const IniTexts& texts);

}

// In which language the program would write the journal's texts.
#pragma once

#include "check/finding.h"
#include "check/program_settings.h"
#include "check/texts.h"

namespace hublink::check {

struct DictionaryFacts {
    bool isLoaded = false;      // Outlook's session loads it
    std::int32_t language = 0;  // as set; 0 is the user's own
    LANGID usersLanguage = 0;
    std::wstring file;          // "" when no language has one
    bool holdsTexts = false;
};

DictionaryFacts dictionaryFacts(const ProgramSettings& settings, const std::wstring& programFolder);

Findings dictionaryFindings(const DictionaryFacts& facts, const DictionaryTexts& texts);

}

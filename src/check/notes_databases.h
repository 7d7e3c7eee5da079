// The two databases in which Notes keeps call history and log, as far as they can be seen
// without starting Notes: those that lie on this machine.
#pragma once

#include "check/finding.h"
#include "check/texts.h"
#include "lotus/lotus_session.h"

#include <string>

namespace hublink::check {

struct NotesDatabase {
    std::wstring file; // as the settings name it; "" for none, or one on a server
    bool isThere = false;
    bool isCopied = false; // by the next start of Hublink
};

struct NotesDataFacts {
    std::wstring folder; // "" when the registry names none that Hublink reads
    bool folderIsThere = false;
    NotesDatabase history;
    NotesDatabase log;
};

// `programFolder` is Hublink's own.
NotesDataFacts notesDataFacts(const LotusConfiguration& settings, const std::wstring& programFolder);

Findings notesDataFindings(const NotesDataFacts& facts, const NotesDataTexts& texts);

}

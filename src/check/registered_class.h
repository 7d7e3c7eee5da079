// An automation class as COM would look for it: registered, its program there, offered
// by a running one. No object of it is created, so nothing is started.
#pragma once

#include "check/finding.h"
#include "check/texts.h"

#include <string>

namespace hublink::check {

struct ClassFacts {
    std::wstring name; // ProgID
    bool isRegistered = false;
    bool isIn64BitPart = false;  // and only there
    bool isInProcess = false;    // a library that COM would load
    std::wstring server;         // its file, "" when the registration names none
    bool serverIsThere = false;
    bool isOffered = false;      // a running program has put an object of it on COM's table
};

ClassFacts classFacts(const wchar_t* progId);

Findings classFindings(const ClassFacts& facts, const ClassTexts& texts);

// The file of a server's command line, which may be quoted, have blanks and arguments.
std::wstring fileOfCommand(const std::wstring& command);

}

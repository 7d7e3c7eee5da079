// The answer of Outlook's table of the contacts to: who has this telephone number?
#pragma once

#include "automation/object.h"

#include <windows.h>

#include <cstdint>
#include <string>
#include <vector>

namespace hublink {

enum class PossibleOwner { undecided, nobody, oneContact };

struct TableAnswer {
    PossibleOwner owner = PossibleOwner::undecided;
    std::wstring entryId;     // of the one contact that may have the number
    automation::Object table; // that was asked
    std::int32_t rows = 0;    // which it had then
};

// Answers that serve again while one event is handled, and for two seconds at most. The
// table's count of rows shows that contacts have come or gone. It does not show that a
// contact was changed, nor that one has gone and another one come.
struct TableAnswerCache {
    struct Entry {
        std::wstring sought;
        TableAnswer answer;
    };

    bool isActive = false;     // an event is being handled
    DWORD startTick = 0;       // when the first one was given, a value of GetTickCount
    std::vector<Entry> entries;
};

}

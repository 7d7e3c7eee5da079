// What Outlook's table of the contacts told about a telephone number.
#pragma once

#include "automation/object.h"

#include <windows.h>

#include <cstdint>
#include <string>
#include <vector>

namespace hublink {

enum class NumberOwner { untold, nobody, oneContact };

struct TableAnswer {
    NumberOwner owner = NumberOwner::untold;
    std::wstring entryId;     // of the one contact that may have the number
    automation::Object table; // which told it
    std::int32_t rows = 0;    // which it had then
};

// Answers that serve again while one event is handled, and for two seconds at most. The
// table's count of rows shows that contacts have come or gone. It does not show that a
// contact was changed, nor that one has gone and another one come.
struct KeptAnswers {
    struct Entry {
        std::wstring sought;
        TableAnswer answer;
    };

    bool areKept = false;     // an event is being handled
    DWORD since = 0;          // when the first one was told, as GetTickCount tells it
    std::vector<Entry> entries;
};

}

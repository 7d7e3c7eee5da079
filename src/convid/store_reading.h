// What a store holds, for a reader that changes nothing: nothing is made, repaired or
// removed, and no other program is kept from the file.
#pragma once

#include "convid/record.h"

#include <windows.h>

#include <string>
#include <vector>

namespace convid {

enum class StoreState {
    missing,
    blank,      // just being made, or empty
    sound,
    unfinished, // sound but for its last entry, which the next opening cuts off
    damaged,    // the next opening repairs it and keeps a copy
    newer,      // of a version that this program does not know
    unreadable,
};

struct StoreReading {
    StoreState state = StoreState::missing;
    std::vector<RecordPointer> records; // in no particular order
    DWORD failure = ERROR_SUCCESS;      // why it cannot be read: an error of Windows
    bool hasReplacement = false;        // one that was left behind lies beside it
    std::size_t damagedCopies = 0;      // kept beside it by earlier repairs
};

// A file that its server is just writing to is looked at again.
StoreReading readStore(const std::wstring& path);

}

// Reads a store's file back into memory and judges its state.
#pragma once

#include "convid/log_file.h"
#include "convid/record_index.h"

namespace convid {

struct Replay {
    std::uint64_t end = 0;   // where the last good entry ends
    std::size_t entries = 0; // good entries read
    bool blank = false;      // not even a whole header: a file that was just being made
    bool torn = false;       // something unfinished follows the last good entry
    bool damaged = false;    // the file is not what was written
};

// Applies every good entry of `file` to `index`, in their order. Behind a
// damage the next good entry is looked for and reading goes on there. Throws
// StoreError when the file cannot be read, or is of a newer version.
Replay replay(const LogFile& file, RecordIndex& index);

}

// What real clients do in one installation and not in another.
#pragma once

#include <string>

namespace desk::lotus {

struct Behaviour {
    bool missingItemIsArray = true; // or else an empty text alone
    bool typedArrays = false;       // arrays of texts and of numbers, or else of VARIANT
    bool hasServerName = true;      // NotesSession.ServerName exists
    bool ownIdentifiers = false;    // each object has dispatch identifiers of its own
    std::wstring dataFolder;        // of local databases, whose FilePath is complete then; "" leaves it relative
};

}

// How control commands name databases and documents.
#pragma once

#include "desk/lotus/notes.h"

namespace desk::lotus {

// "books\contacts.nsf" or, on a server, "CN=Mail1/O=Acme!!books\contacts.nsf".
// Throws std::runtime_error when there is none.
SharedDatabase databaseNamed(const Notes& notes, const std::wstring& place);
std::wstring placeOf(const std::wstring& server, const std::wstring& filePath);

struct NamedDocument {
    SharedDatabase database;
    SavedNote note;
};

// By its universal identifier, or as NOTEID@DATABASE. Throws std::runtime_error
// when there is none.
NamedDocument documentNamed(const Notes& notes, const std::wstring& id);

}

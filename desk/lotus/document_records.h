// Documents and their items, as records of the store file; records.h shows them.
#pragma once

#include "desk/common/store_file.h"
#include "desk/lotus/note.h"

#include <utility>

namespace desk::lotus {

// One document: its identifiers as @NoteID and @UniversalID, then its items.
StoreRecord recordOf(const Note& note);
Note noteOf(const StoreRecord& record);

// Gives the note the items of a record; those that it names replace the note's.
void change(Note& note, const StoreRecord& record);

// An item's name with its type, "Age:number"; texts have the name alone.
std::pair<const ItemName*, ItemType> typedName(const std::wstring& text);
std::wstring typedText(const ItemName& name, ItemType type);

}

// A document as it is saved: its identifiers and its items.
#pragma once

#include "desk/lotus/item.h"

#include <memory>
#include <string>
#include <vector>

namespace desk::lotus {

struct Note {
    unsigned long noteId = 0;  // in its database; 0 before the first save
    std::wstring universalId;  // 32 hexadecimal digits
    std::vector<Item> items;   // several may have one name
    DATE created = 0;
    DATE modified = 0;
    unsigned long place = 0;   // its place in the order of creation
    unsigned version = 0;      // of the saved contents
    bool deleted = false;

    // The first item of that name, or null.
    const Item* find(const ItemName& name) const noexcept;
    Item* find(const ItemName& name) noexcept;

    // The text of its first value, "" without one.
    std::wstring text(const ItemName& name) const;

    void replace(Item item); // all items of that name
    void remove(const ItemName& name);

    // Whether it answers another document, as a save conflict does.
    bool isResponse() const noexcept;

    std::wstring noteIdText() const; // as NoteID tells it: hexadecimal, "0" before the first save
};

using SavedNote = std::shared_ptr<Note>;

// Items that Notes itself looks at.
namespace names {
inline const ItemName& form = itemName(L"Form");
inline const ItemName& reference = itemName(L"$Ref");
inline const ItemName& conflict = itemName(L"$Conflict");
inline const ItemName& saveOptions = itemName(L"SaveOptions");
}

}

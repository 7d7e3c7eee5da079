// The saved items: a few default folders, each in the order in which its items
// were saved first.
#pragma once

#include "desk/outlook/item.h"

#include <memory>
#include <string>
#include <unordered_map>
#include <vector>

namespace desk::outlook {

using SavedItem = std::shared_ptr<Item>;

struct Folder {
    long number; // as in NameSpace.GetDefaultFolder
    const wchar_t* name;
    ItemClass defaultClass;
    std::vector<SavedItem> items;
    unsigned long changes = 0; // of which items lie in it
};

namespace folders {
inline constexpr long deleted = 3;
inline constexpr long sent = 5;
inline constexpr long inbox = 6;
inline constexpr long contacts = 10;
inline constexpr long journal = 11;
inline constexpr long drafts = 16;
}

class Mailbox {
public:
    Mailbox();

    // The default folder of that number, or null.
    Folder* folder(long number) noexcept;
    const std::vector<Folder>& all() const noexcept { return folders_; }

    // Where an item goes that is made without a folder.
    static long homeOf(ItemClass itemClass) noexcept;

    // A new saved item, with an entry identifier of its own.
    SavedItem add(const Item& item);

    void move(const SavedItem& item, long folder);

    // Removes it from its folder for good.
    void remove(const SavedItem& item);

    // The item with that identifier, or null.
    SavedItem find(const std::wstring& entryId) const;

    // Replaces everything. Throws std::runtime_error and changes nothing.
    void load(const std::vector<StoreRecord>& records);
    std::vector<StoreRecord> records() const;

private:
    void putInto(long number, const SavedItem& item);
    void takeFrom(long number, const SavedItem& item);
    SavedItem keep(Item item);
    std::wstring nextEntryId();

    std::vector<Folder> folders_;
    std::unordered_map<std::wstring, SavedItem> byId_;
    unsigned long lastId_ = 0;
};

// The record of a saved item, with its folder where that is not its home.
StoreRecord savedRecord(const Item& item);

}

#include "desk/outlook/mailbox.h"

#include "desk/common/text.h"

#include <algorithm>
#include <cwchar>

namespace desk::outlook {

namespace {

// As a message store makes them: flags, the store's own identifier, a number.
constexpr std::wstring_view idStart = L"000000008F3A61C45D2E4B7A9C10E2D7B5F4A386";
constexpr unsigned long firstNumber = 0x00200004;
constexpr unsigned long step = 0x20;

std::vector<Folder> defaultFolders()
{
    return {{folders::inbox, L"Inbox", ItemClass::mail, {}},
            {folders::drafts, L"Drafts", ItemClass::mail, {}},
            {folders::sent, L"Sent Items", ItemClass::mail, {}},
            {folders::deleted, L"Deleted Items", ItemClass::mail, {}},
            {folders::contacts, L"Contacts", ItemClass::contact, {}},
            {folders::journal, L"Journal", ItemClass::journal, {}}};
}

}

Mailbox::Mailbox() : folders_(defaultFolders()) {}

Folder* Mailbox::folder(long number) noexcept
{
    for (Folder& folder : folders_)
        if (folder.number == number) return &folder;
    return nullptr;
}

long Mailbox::homeOf(ItemClass itemClass) noexcept
{
    switch (itemClass) {
    case ItemClass::contact:
    case ItemClass::distributionList: return folders::contacts;
    case ItemClass::journal: return folders::journal;
    case ItemClass::mail: break;
    }
    return folders::drafts;
}

std::wstring Mailbox::nextEntryId()
{
    wchar_t number[16];
    std::wstring id;
    do {
        swprintf(number, 16, L"%08lX", firstNumber + step * lastId_++);
        id = std::wstring(idStart) + number;
    } while (byId_.contains(id)); // a store file may have brought its own
    return id;
}

void Mailbox::putInto(long number, const SavedItem& item)
{
    Folder& into = *folder(number);
    into.items.push_back(item);
    ++into.changes;
}

void Mailbox::takeFrom(long number, const SavedItem& item)
{
    Folder& from = *folder(number);
    std::erase(from.items, item);
    ++from.changes;
}

SavedItem Mailbox::keep(Item item)
{
    auto saved = std::make_shared<Item>(std::move(item));
    if (saved->entryId.empty()) saved->entryId = nextEntryId();
    byId_[saved->entryId] = saved;
    putInto(saved->folder, saved);
    return saved;
}

SavedItem Mailbox::add(const Item& item)
{
    return keep(item);
}

void Mailbox::move(const SavedItem& item, long number)
{
    takeFrom(item->folder, item);
    item->folder = number;
    putInto(number, item);
}

void Mailbox::remove(const SavedItem& item)
{
    takeFrom(item->folder, item);
    byId_.erase(item->entryId);
    item->deleted = true;
}

SavedItem Mailbox::find(const std::wstring& entryId) const
{
    const auto found = byId_.find(entryId);
    return found == byId_.end() ? nullptr : found->second;
}

void Mailbox::load(const std::vector<StoreRecord>& records)
{
    Mailbox loaded;
    for (const StoreRecord& record : records) {
        Item item = itemOf(record);
        item.folder = homeOf(item.itemClass);
        if (const std::wstring* number = record.find(L"Folder"))
            item.folder = static_cast<long>(numberOf(*number, "folder"));
        if (!loaded.folder(item.folder)) refuseRecord(record, "there is no such folder");
        if (!item.entryId.empty() && loaded.find(item.entryId)) refuseRecord(record, "the EntryID is used twice");
        loaded.keep(std::move(item));
    }
    for (const auto& entry : byId_) entry.second->deleted = true;
    // The folders stay where they are, since open objects look at them.
    for (std::size_t index = 0; index < folders_.size(); ++index) {
        folders_[index].items = std::move(loaded.folders_[index].items);
        ++folders_[index].changes;
    }
    byId_ = std::move(loaded.byId_);
    lastId_ = loaded.lastId_;
}

std::vector<StoreRecord> Mailbox::records() const
{
    std::vector<StoreRecord> records;
    for (const Folder& folder : folders_)
        for (const SavedItem& item : folder.items) records.push_back(savedRecord(*item));
    return records;
}

StoreRecord savedRecord(const Item& item)
{
    StoreRecord record = recordOf(item);
    if (item.folder != Mailbox::homeOf(item.itemClass)) record.add(L"Folder", std::to_wstring(item.folder));
    return record;
}

}

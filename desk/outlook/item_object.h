// An open item: ContactItem, DistListItem, JournalItem or MailItem. Changes
// stay in a working copy of its own until Save or Close; another reference to
// the same item does not see them, unless the item is displayed.
#pragma once

#include "desk/outlook/outlook_object.h"

#include <memory>

namespace desk::outlook {

class ItemObject : public OutlookObject {
public:
    // A new item that Save puts into `folder`.
    ItemObject(Outlook& outlook, ItemClass itemClass, long folder);

    // A saved item.
    ItemObject(Outlook& outlook, SavedItem saved);

    // The item as this reference sees it. Raises when it was deleted.
    const Item& item() const;

    // The working copy, to be changed; `changed` afterwards.
    Item& edit();
    void changed();

    bool isSaved() const noexcept { return !unsaved_; }

    // Whether closing now would lose something: a new item, or changes.
    bool hasUnsavedData() const noexcept { return working_ != nullptr; }

    bool isSameItem(const ItemObject& other) const noexcept;
    bool isOf(const SavedItem& saved) const noexcept { return saved_ == saved; }
    InspectorView view() const;

    void save();
    void discard();

    // Members of every item.
    automation::Value answerField(const automation::server::IncomingCall& call);
    automation::Value answerClose(const automation::server::IncomingCall& call);
    automation::Value answerDisplay(const automation::server::IncomingCall& call);
    automation::Value answerDelete();
    automation::Value answerSend();
    automation::Value parent();

private:
    void checkReachable() const;

    SavedItem saved_;              // null until the first save
    std::unique_ptr<Item> working_; // null while nothing was changed
    unsigned version_ = 0;         // of the saved item when the working copy was made
    bool unsaved_ = false;
    bool gone_ = false;            // sent or deleted
};

automation::ComPtr<ItemObject> makeItem(Outlook& outlook, ItemClass itemClass, long folder);
automation::ComPtr<ItemObject> makeItem(Outlook& outlook, const SavedItem& saved);

}

// NotesItem: an item as it was when the client asked for it; its values can be
// set in its document.
#pragma once

#include "desk/lotus/objects.h"
#include "desk/lotus/open_note.h"

namespace desk::lotus {

class ItemObject final : public NotesTable<ItemObject> {
public:
    ItemObject(Notes& notes, SharedNote note, Item item);
    static const std::vector<automation::server::MemberRow<ItemObject>>& members();

    const Item& item() const noexcept { return item_; }

private:
    automation::Value values(const automation::server::IncomingCall& call);
    std::int32_t type() const noexcept;
    void remove();

    Notes& notes_;
    const SharedNote note_;
    Item item_;
    const Notes::Registered<ItemObject> registered_;
};

automation::Value itemValue(Notes& notes, const SharedNote& note, const Item& item);

}

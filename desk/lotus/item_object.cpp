#include "desk/lotus/item_object.h"

#include "automation/error.h"
#include "desk/lotus/document_object.h"

namespace desk::lotus {

ItemObject::ItemObject(Notes& notes, SharedNote note, Item item)
    : NotesTable(notes, L"NotesItem"), notes_(notes), note_(std::move(note)), item_(std::move(item)),
      registered_(notes.itemObjects(), this)
{}

// A rich text is read as one text, all else as an array.
Value ItemObject::values(const IncomingCall& call)
{
    if (!call.isPut())
        return item_.type == ItemType::richText ? Value(textOf(item_)) : valuesOf(item_, notes_.behaviour.typedArrays);
    try {
        item_ = itemFrom(*item_.name, call.arguments.value(0));
    } catch (const automation::AutomationError& error) {
        throw server::Failure{error.code(), 0};
    }
    note_->edit().replace(item_);
    notes_.workspace().changed(*note_);
    return {};
}

// As LotusScript's constants have it.
std::int32_t ItemObject::type() const noexcept
{
    switch (item_.type) {
    case ItemType::text: return 1280;
    case ItemType::number: return 768;
    case ItemType::date: return 1024;
    case ItemType::richText: break;
    }
    return 1;
}

void ItemObject::remove()
{
    note_->edit().remove(*item_.name);
    notes_.workspace().changed(*note_);
}

const std::vector<MemberRow<ItemObject>>& ItemObject::members()
{
    static const std::vector<MemberRow<ItemObject>> rows{
        {L"Name", 0x501, server::readOnly, 0, 0,
         [](ItemObject& self, const IncomingCall&) -> Value { return self.item_.name->spelling; }},
        {L"Values", 0x502, server::readWrite, 0, 0,
         [](ItemObject& self, const IncomingCall& call) -> Value { return self.values(call); }},
        {L"Text", 0x503, server::readOnly, 0, 0,
         [](ItemObject& self, const IncomingCall&) -> Value { return textOf(self.item_); }},
        {L"Type", 0x504, server::readOnly, 0, 0,
         [](ItemObject& self, const IncomingCall&) -> Value { return self.type(); }},
        {L"Parent", 0x505, server::readOnly, 0, 0,
         [](ItemObject& self, const IncomingCall&) -> Value { return documentValue(self.notes_, self.note_); }},
        {L"Remove", 0x506, server::method, 0, 0,
         [](ItemObject& self, const IncomingCall&) -> Value { return self.remove(), Value(); }},
    };
    return rows;
}

Value itemValue(Notes& notes, const SharedNote& note, const Item& item)
{
    return server::valueOf(server::make<ItemObject>(notes, note, item));
}

}

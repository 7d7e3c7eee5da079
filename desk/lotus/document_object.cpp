#include "desk/lotus/document_object.h"

#include "automation/error.h"
#include "desk/lotus/errors.h"
#include "desk/lotus/item_object.h"

namespace desk::lotus {

DocumentObject::DocumentObject(Notes& notes, SharedNote note, bool ofWindow)
    : NotesTable(notes, L"NotesDocument"), notes_(notes), note_(std::move(note)), ofWindow_(ofWindow),
      registered_(notes.documentObjects(), this)
{}

const SharedNote& DocumentObject::opened() const
{
    if (removed_) raiseDeleted();
    return note_;
}

DISPID DocumentObject::ownId(std::wstring_view name)
{
    const DISPID own = NotesTable::ownId(name);
    return own == DISPID_UNKNOWN ? itemName(name).id : own;
}

const MemberSummary* DocumentObject::memberOf(DISPID id) const
{
    const ItemName* const item = itemNameOf(id);
    return item ? &item->asMember : NotesTable::memberOf(id);
}

Value DocumentObject::answer(const IncomingCall& call)
{
    const ItemName* const item = itemNameOf(call.id);
    return item ? itemProperty(*item, call) : NotesTable::answer(call);
}

// A missing item is an array with one empty text, or as some have seen it, an
// empty text alone.
Value DocumentObject::valueOfItem(const ItemName& name) const
{
    const Behaviour& ways = notes_.behaviour;
    if (const Item* item = note().find(name)) return valuesOf(*item, ways.typedArrays);
    if (!ways.missingItemIsArray) return L"";
    return arrayOf({L""}, ways.typedArrays ? VT_BSTR : VT_VARIANT);
}

Value DocumentObject::itemProperty(const ItemName& name, const IncomingCall& call)
{
    checkFits(call, server::readWrite, 0, 1);
    if (call.isPut()) {
        opened()->edit().replace(itemFor(name, call, call.arguments.size() - 1));
        changed();
        return {};
    }
    if (!call.arguments.isGiven(0)) return valueOfItem(name);
    // Doc.Subject(0): one of its values.
    const Item* const item = note().find(name);
    const std::int32_t index = call.arguments.int32(0);
    if (index < 0 || static_cast<std::size_t>(index) >= (item ? item->size() : 1))
        throw server::Failure{DISP_E_BADINDEX};
    return item ? valueAt(*item, static_cast<std::size_t>(index)) : Value(L"");
}

Item DocumentObject::itemFor(const ItemName& name, const IncomingCall& call, std::size_t argument) const
try {
    const Value value = call.arguments.value(argument);
    if (value.type() == VT_DISPATCH)
        if (const ItemObject* other = notes_.itemOf(value.object())) {
            Item copy = other->item();
            copy.name = &name;
            return copy;
        }
    return itemFrom(name, value);
} catch (const automation::AutomationError& error) {
    throw server::Failure{error.code(), static_cast<unsigned>(argument)};
}

void DocumentObject::changed()
{
    notes_.workspace().changed(*note_);
}

Value DocumentObject::firstItem(const std::wstring& name) const
{
    const Item* const item = note().find(itemName(name));
    return item ? itemValue(notes_, note_, *item) : Value(automation::Object());
}

Value DocumentObject::allItems() const
{
    std::vector<Value> items;
    for (const Item& item : note().items) items.push_back(itemValue(notes_, note_, item));
    return arrayOf(items);
}

Value DocumentObject::appendItem(const IncomingCall& call)
{
    Item item = itemFor(itemName(call.arguments.text(0)), call, 1);
    std::vector<Item>& items = opened()->edit().items;
    items.push_back(std::move(item));
    changed();
    return itemValue(notes_, note_, items.back());
}

Value DocumentObject::replaceItem(const IncomingCall& call)
{
    const ItemName& name = itemName(call.arguments.text(0));
    opened()->edit().replace(itemFor(name, call, 1));
    changed();
    return itemValue(notes_, note_, *note().find(name));
}

void DocumentObject::removeItem(const std::wstring& name)
{
    opened()->edit().remove(itemName(name));
    changed();
}

Value DocumentObject::save(const IncomingCall& call)
{
    const bool saved = opened()->save(call.arguments.isTrue(0), call.arguments.isTrue(1));
    if (saved) {
        changed();
        notes_.changed();
    }
    return saved;
}

Value DocumentObject::remove(bool force)
{
    if (ofWindow_) raise(numbers::notesError, L"A document that is open in a window cannot be deleted through it");
    if (!opened()->remove(force)) return false;
    removed_ = true;
    notes_.changed();
    return true;
}

const std::vector<MemberRow<DocumentObject>>& DocumentObject::members()
{
    static const std::vector<MemberRow<DocumentObject>> rows{
        {L"NoteID", 0x401, server::readOnly, 0, 0,
         [](DocumentObject& self, const IncomingCall&) -> Value { return self.note().noteIdText(); }},
        {L"UniversalID", 0x402, server::readOnly, 0, 0,
         [](DocumentObject& self, const IncomingCall&) -> Value { return self.note().universalId; }},
        {L"IsNewNote", 0x403, server::readOnly, 0, 0,
         [](DocumentObject& self, const IncomingCall&) -> Value { return self.opened()->isNew(); }},
        {L"IsDeleted", 0x404, server::readOnly, 0, 0,
         [](DocumentObject& self, const IncomingCall&) -> Value { return self.note_->isDeleted(); }},
        // Deletion stubs are never given to clients.
        {L"IsValid", 0x405, server::readOnly, 0, 0, [](DocumentObject&, const IncomingCall&) -> Value { return true; }},
        {L"IsResponse", 0x406, server::readOnly, 0, 0,
         [](DocumentObject& self, const IncomingCall&) -> Value { return self.note().isResponse(); }},
        {L"ParentDocumentUNID", 0x407, server::readOnly, 0, 0,
         [](DocumentObject& self, const IncomingCall&) -> Value { return self.note().text(names::reference); }},
        {L"ParentDatabase", 0x408, server::readOnly, 0, 0,
         [](DocumentObject& self, const IncomingCall&) -> Value {
             return databaseValue(self.notes_, self.opened()->database());
         }},
        {L"Created", 0x409, server::readOnly, 0, 0,
         [](DocumentObject& self, const IncomingCall&) -> Value { return Value::date(self.note().created); }},
        {L"LastModified", 0x40A, server::readOnly, 0, 0,
         [](DocumentObject& self, const IncomingCall&) -> Value { return Value::date(self.note().modified); }},
        {L"Items", 0x40B, server::readOnly, 0, 0,
         [](DocumentObject& self, const IncomingCall&) -> Value { return self.allItems(); }},
        {L"GetItemValue", 0x40C, server::method, 1, 1,
         [](DocumentObject& self, const IncomingCall& call) -> Value {
             return self.valueOfItem(itemName(call.arguments.text(0)));
         }},
        {L"HasItem", 0x40D, server::method, 1, 1,
         [](DocumentObject& self, const IncomingCall& call) -> Value {
             return self.note().find(itemName(call.arguments.text(0))) != nullptr;
         }},
        {L"GetFirstItem", 0x40E, server::method, 1, 1,
         [](DocumentObject& self, const IncomingCall& call) -> Value {
             return self.firstItem(call.arguments.text(0));
         }},
        {L"AppendItemValue", 0x40F, server::method, 2, 2,
         [](DocumentObject& self, const IncomingCall& call) -> Value { return self.appendItem(call); }},
        {L"ReplaceItemValue", 0x410, server::method, 2, 2,
         [](DocumentObject& self, const IncomingCall& call) -> Value { return self.replaceItem(call); }},
        {L"RemoveItem", 0x411, server::method, 1, 1,
         [](DocumentObject& self, const IncomingCall& call) -> Value {
             return self.removeItem(call.arguments.text(0)), Value();
         }},
        {L"Save", 0x412, server::method, 2, 3,
         [](DocumentObject& self, const IncomingCall& call) -> Value { return self.save(call); }},
        {L"Remove", 0x413, server::method, 1, 1,
         [](DocumentObject& self, const IncomingCall& call) -> Value { return self.remove(call.arguments.isTrue(0)); }},
        {L"RemovePermanently", 0x414, server::method, 1, 1,
         [](DocumentObject& self, const IncomingCall& call) -> Value { return self.remove(call.arguments.isTrue(0)); }},
    };
    return rows;
}

Value documentValue(Notes& notes, const SharedNote& note, bool ofWindow)
{
    return server::valueOf(server::make<DocumentObject>(notes, note, ofWindow));
}

Value documentValue(Notes& notes, const SharedDatabase& database, const SavedNote& note)
{
    if (!note) return automation::Object();
    return documentValue(notes, std::make_shared<OpenNote>(database, note));
}

}

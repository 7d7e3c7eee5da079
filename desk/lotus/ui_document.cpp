// NotesUIDocument: the window of a displayed document.
#include "desk/lotus/document_object.h"
#include "desk/lotus/errors.h"
#include "desk/lotus/objects.h"

namespace desk::lotus {

namespace {

class UIDocument final : public NotesTable<UIDocument> {
public:
    UIDocument(Notes& notes, WindowId id) : NotesTable(notes, L"NotesUIDocument"), notes_(notes), id_(id) {}
    static const std::vector<MemberRow<UIDocument>>& members();

private:
    DocumentWindow& window() const
    {
        DocumentWindow* const open = notes_.workspace().find(id_);
        if (!open) raiseNotAvailable();
        return *open;
    }

    DocumentWindow& editedWindow() const
    {
        DocumentWindow& open = window();
        if (!open.editing) raiseNotEditing();
        return open;
    }

    std::wstring fieldText(const std::wstring& name) const
    {
        const DocumentWindow& open = window();
        const Item* const item = open.note->note().find(*open.field(name).name);
        return item ? textOf(*item) : std::wstring();
    }

    // What is typed is a text until the document is saved.
    void setField(const std::wstring& name, const std::wstring& text, bool append)
    {
        DocumentWindow& open = editedWindow();
        const FormField field = open.field(name);
        Item item{field.name, field.type == ItemType::richText ? ItemType::richText : ItemType::text};
        const Item* const before = append ? open.note->note().find(*field.name) : nullptr;
        item.texts.push_back((before ? textOf(*before) : std::wstring()) + text);
        open.note->edit().replace(std::move(item));
        notes_.workspace().changed(*open.note);
    }

    void goToField(const std::wstring& name)
    {
        DocumentWindow& open = editedWindow();
        open.currentField = open.field(name).name;
    }

    Value editMode(const IncomingCall& call)
    {
        if (!call.isPut()) return window().editing;
        notes_.workspace().setEditing(window().id, call.arguments.isTrue(0));
        return {};
    }

    std::wstring currentField() const
    {
        const ItemName* const field = window().currentField;
        return field ? field->spelling : std::wstring();
    }

    Notes& notes_;
    const WindowId id_;
};

const std::vector<MemberRow<UIDocument>>& UIDocument::members()
{
    static const std::vector<MemberRow<UIDocument>> rows{
        {L"Document", 0x701, server::readOnly, 0, 0,
         [](UIDocument& self, const IncomingCall&) -> Value {
             return documentValue(self.notes_, self.window().note, true);
         }},
        {L"EditMode", 0x702, server::readWrite, 0, 0,
         [](UIDocument& self, const IncomingCall& call) -> Value { return self.editMode(call); }},
        {L"IsNewDoc", 0x703, server::readOnly, 0, 0,
         [](UIDocument& self, const IncomingCall&) -> Value { return self.window().note->isNew(); }},
        {L"WindowTitle", 0x704, server::readOnly, 0, 0,
         [](UIDocument& self, const IncomingCall&) -> Value { return self.window().title(); }},
        {L"CurrentField", 0x705, server::readOnly, 0, 0,
         [](UIDocument& self, const IncomingCall&) -> Value { return self.currentField(); }},
        {L"FieldGetText", 0x706, server::method, 0, 1,
         [](UIDocument& self, const IncomingCall& call) -> Value {
             return self.fieldText(call.arguments.isGiven(0) ? call.arguments.text(0) : std::wstring());
         }},
        {L"FieldSetText", 0x707, server::method, 2, 2,
         [](UIDocument& self, const IncomingCall& call) -> Value {
             return self.setField(call.arguments.text(0), call.arguments.text(1), false), Value();
         }},
        {L"FieldAppendText", 0x708, server::method, 2, 2,
         [](UIDocument& self, const IncomingCall& call) -> Value {
             return self.setField(call.arguments.text(0), call.arguments.text(1), true), Value();
         }},
        {L"FieldClear", 0x709, server::method, 0, 1,
         [](UIDocument& self, const IncomingCall& call) -> Value {
             return self.setField(call.arguments.isGiven(0) ? call.arguments.text(0) : L"", L"", false), Value();
         }},
        {L"GotoField", 0x70A, server::method, 1, 1,
         [](UIDocument& self, const IncomingCall& call) -> Value {
             return self.goToField(call.arguments.text(0)), Value();
         }},
        {L"Save", 0x70B, server::method, 0, 0,
         [](UIDocument& self, const IncomingCall&) -> Value {
             return self.notes_.workspace().save(self.window().id), Value();
         }},
        {L"Close", 0x70C, server::method, 0, 1,
         [](UIDocument& self, const IncomingCall&) -> Value {
             return self.notes_.workspace().close(self.window().id), Value();
         }},
    };
    return rows;
}

}

Value windowValue(Notes& notes, WindowId id)
{
    if (id == 0) return automation::Object();
    return server::valueOf(server::make<UIDocument>(notes, id));
}

}

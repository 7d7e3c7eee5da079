// NotesUIWorkspace: what the user looks at.
#include "desk/common/text.h"
#include "desk/lotus/document_object.h"
#include "desk/lotus/errors.h"
#include "desk/lotus/objects.h"

namespace desk::lotus {

namespace {

class UIWorkspace final : public NotesTable<UIWorkspace> {
public:
    explicit UIWorkspace(Notes& notes) : NotesTable(notes, L"NotesUIWorkspace"), notes_(notes) {}
    static const std::vector<MemberRow<UIWorkspace>>& members();

private:
    Workspace& workspace() const { return notes_.workspace(); }

    static std::wstring textOr(const IncomingCall& call, std::size_t index)
    {
        return call.arguments.isGiven(index) ? call.arguments.text(index) : std::wstring();
    }

    static bool truthOr(const IncomingCall& call, std::size_t index, bool otherwise)
    {
        return call.arguments.isGiven(index) ? call.arguments.isTrue(index) : otherwise;
    }

    // The one of the document in front, or that of the view.
    SharedDatabase shownDatabase() const
    {
        const DocumentWindow* const window = workspace().current();
        return window ? window->note->database() : workspace().shownDatabase();
    }

    // The database that the user interface shall open; without a name, the current one.
    SharedDatabase wanted(const std::wstring& place, const std::wstring& filePath) const
    {
        const SharedDatabase database =
            place.empty() && filePath.empty() ? shownDatabase() : notes_.database(place, filePath);
        if (!database || !database->canBeOpened) raiseNoFile();
        return database;
    }

    Value currentDocument() const
    {
        const DocumentWindow* const window = workspace().current();
        return windowValue(notes_, window ? window->id : 0);
    }

    Value currentDatabase() const { return uiDatabaseValue(notes_, shownDatabase()); }

    Value currentView() const { return uiViewValue(notes_, workspace().shownDatabase(), workspace().shownView()); }

    Value openDatabase(const IncomingCall& call)
    {
        const SharedDatabase database = wanted(call.arguments.text(0), call.arguments.text(1));
        const std::wstring name = textOr(call, 2);
        const View* const view = name.empty() ? database->defaultView() : database->view(name);
        if (!view && !name.empty()) raise(numbers::userInterface, L"Cannot locate view: " + name);
        if (!truthOr(call, 5, false)) workspace().addIcon(*database);
        workspace().show(database, view);
        return {};
    }

    Value addDatabase(const IncomingCall& call)
    {
        workspace().addIcon(*wanted(textOr(call, 0), call.arguments.text(1)));
        return {};
    }

    // Without a document it is the current one that changes its mode.
    Value editDocument(const IncomingCall& call)
    {
        const bool editing = truthOr(call, 0, true);
        if (!call.arguments.isGiven(1)) {
            const DocumentWindow* const window = workspace().current();
            if (!window) raiseNotAvailable();
            const WindowId id = window->id;
            workspace().setEditing(id, editing);
            return answerWith(id, call, 4);
        }
        const DocumentObject* const document = notes_.documentOf(call.arguments.object(1));
        if (!document) throw server::Failure{DISP_E_TYPEMISMATCH, 1};
        const bool newInstance = truthOr(call, 5, true);
        return answerWith(workspace().open(document->opened(), editing, truthOr(call, 2, false), newInstance), call, 4);
    }

    Value composeDocument(const IncomingCall& call)
    {
        const SharedDatabase database = wanted(textOr(call, 0), textOr(call, 1));
        const std::wstring name = textOr(call, 2);
        const Form* const form = database->form(name);
        if (!form) raise(numbers::userInterface, L"Cannot locate form: " + name);
        const auto note = std::make_shared<OpenNote>(database);
        note->edit().replace(textItem(names::form, form->name));
        for (const FormField& field : form->fields)
            if (!field.name->is(names::form)) note->edit().replace(textItem(*field.name, L""));
        return answerWith(workspace().open(note, true), call, 5);
    }

    Value answerWith(WindowId id, const IncomingCall& call, std::size_t wantsAnswer) const
    {
        return truthOr(call, wantsAnswer, true) ? windowValue(notes_, id) : Value();
    }

    Notes& notes_;
};

const std::vector<MemberRow<UIWorkspace>>& UIWorkspace::members()
{
    static const std::vector<MemberRow<UIWorkspace>> rows{
        {L"CurrentDocument", 0x601, server::readOnly, 0, 0,
         [](UIWorkspace& self, const IncomingCall&) -> Value { return self.currentDocument(); }},
        {L"CurrentDatabase", 0x602, server::readOnly, 0, 0,
         [](UIWorkspace& self, const IncomingCall&) -> Value { return self.currentDatabase(); }},
        {L"GetCurrentDatabase", 0x603, server::method, 0, 0,
         [](UIWorkspace& self, const IncomingCall&) -> Value { return self.currentDatabase(); }},
        {L"CurrentView", 0x604, server::readOnly, 0, 0,
         [](UIWorkspace& self, const IncomingCall&) -> Value { return self.currentView(); }},
        {L"OpenDatabase", 0x605, server::method, 2, 6,
         [](UIWorkspace& self, const IncomingCall& call) -> Value { return self.openDatabase(call); }},
        {L"AddDatabase", 0x606, server::method, 2, 2,
         [](UIWorkspace& self, const IncomingCall& call) -> Value { return self.addDatabase(call); }},
        {L"EditDocument", 0x607, server::method, 0, 6,
         [](UIWorkspace& self, const IncomingCall& call) -> Value { return self.editDocument(call); }},
        {L"ComposeDocument", 0x608, server::method, 0, 6,
         [](UIWorkspace& self, const IncomingCall& call) -> Value { return self.composeDocument(call); }},
        // Views are always up to date here; the call counts.
        {L"ViewRefresh", 0x609, server::method, 0, 0,
         [](UIWorkspace& self, const IncomingCall&) -> Value {
             self.workspace().screen().updateMain();
             return {};
         }},
    };
    return rows;
}

}

automation::ComPtr<IDispatch> makeWorkspace(Notes& notes)
{
    return server::make<UIWorkspace>(notes);
}

}

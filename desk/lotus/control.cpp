// Notes' own control commands; README.md lists them.
#include "desk/common/text.h"
#include "desk/lotus/document_records.h"
#include "desk/lotus/listings.h"
#include "desk/lotus/naming.h"
#include "desk/lotus/notes.h"
#include "desk/lotus/settings.h"

#include <stdexcept>

namespace desk::lotus {

namespace {

StoreRecord oneRecord(std::wstring_view text)
{
    std::vector<StoreRecord> records = parseStore(L"[document]\n" + std::wstring(text));
    if (records.size() != 1) throw std::runtime_error("one document at a time");
    return records[0];
}

// "DATABASE", then the items on the next lines.
std::wstring add(Notes& notes, std::wstring_view text)
{
    const SharedDatabase database = databaseNamed(notes, takeWord(text));
    Note note = noteOf(oneRecord(text));
    if ((note.noteId && database->find(note.noteId)) || database->findUniversal(note.universalId))
        throw std::runtime_error("the identifier is used already");
    const SavedNote saved = database->add(std::move(note));
    notes.changed();
    return saved->universalId;
}

// "ID", then the items that get new values: what another user saves.
std::wstring change(Notes& notes, std::wstring_view text)
{
    const NamedDocument found = documentNamed(notes, takeWord(text));
    Note contents = *found.note;
    change(contents, oneRecord(text));
    found.database->replace(found.note, std::move(contents));
    notes.changed();
    return L"ok";
}

std::wstring remove(Notes& notes, const std::wstring& id)
{
    const NamedDocument found = documentNamed(notes, id);
    found.database->remove(found.note);
    notes.changed();
    return L"ok";
}

// The user opens a document: in a copy of its own.
std::wstring open(Notes& notes, std::wstring_view text)
{
    const NamedDocument found = documentNamed(notes, takeWord(text));
    const std::wstring mode = takeWord(text);
    if (!mode.empty() && mode != L"edit") throw std::runtime_error("open ID, or open ID edit");
    notes.workspace().open(std::make_shared<OpenNote>(found.database, found.note), mode == L"edit");
    return L"ok";
}

std::wstring show(Notes& notes, std::wstring_view text)
{
    const SharedDatabase database = databaseNamed(notes, takeWord(text));
    const View* const view = text.empty() ? database->defaultView() : database->view(text);
    if (!view && !text.empty()) throw std::runtime_error("there is no such view");
    notes.workspace().show(database, view);
    return L"ok";
}

// The window of a document that is displayed; "unsaved" is the first new one.
WindowId windowOf(Notes& notes, std::wstring_view id)
{
    const SavedNote wanted = id == L"unsaved" ? nullptr : documentNamed(notes, std::wstring(id)).note;
    for (const DocumentWindow& window : notes.workspace().windows())
        if (window.note->saved() == wanted) return window.id;
    throw std::runtime_error("there is no window of this document");
}

std::wstring toForeground(Notes& notes, std::wstring_view id)
{
    const WindowId window = id.empty() ? 0 : windowOf(notes, id);
    const DocumentWindow* const current = notes.workspace().current();
    const WindowId wanted = id.empty() && current ? current->id : window;
    notes.workspace().activated(wanted);
    notes.workspace().screen().comeToForeground(wanted);
    return L"ok";
}

void saveAs(Workspace& workspace, WindowId id)
try {
    workspace.setEditing(id, true); // as the user would
    workspace.save(id);
} catch (const automation::server::Exception& error) {
    throw std::runtime_error(utf8(error.description));
}

std::wstring closeWindows(Workspace& workspace, bool save)
{
    while (!workspace.windows().empty()) {
        const DocumentWindow& last = workspace.windows().back();
        const WindowId id = last.id;
        if (save && last.note->hasChanges()) saveAs(workspace, id);
        workspace.close(id);
    }
    return L"ok";
}

}

std::optional<std::wstring> Notes::command(const std::wstring& word, std::wstring_view rest)
{
    if (word == L"add") return add(*this, rest);
    if (word == L"change") return change(*this, rest);
    if (word == L"delete") return remove(*this, std::wstring(rest));
    if (word == L"open") return open(*this, rest);
    if (word == L"show") return show(*this, rest);
    if (word == L"front") return toForeground(*this, rest);
    if (word == L"back") return workspace_.screen().leaveForeground(), L"ok";
    if (word == L"frame") return workspace_.screen().moveIntoFrame(), L"ok";
    if (word == L"close") return workspace_.close(windowOf(*this, rest)), L"ok";
    if (word == L"save") return saveAs(workspace_, windowOf(*this, rest)), L"ok";
    if (word == L"close-windows") return closeWindows(workspace_, false);
    if (word == L"save-windows") return closeWindows(workspace_, true);
    if (const auto told = listing(*this, word, rest)) return told;
    return changeSetting(*this, word, rest);
}

}

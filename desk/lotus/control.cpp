// Notes' own control commands; README.md lists them.
#include "desk/common/text.h"
#include "desk/lotus/notes.h"
#include "desk/lotus/records.h"

#include <stdexcept>

namespace desk::lotus {

namespace {

// "books\contacts.nsf" or, on a server, "CN=Mail1/O=Acme!!books\contacts.nsf".
SharedDatabase databaseNamed(const Notes& notes, const std::wstring& place)
{
    const std::size_t mark = place.find(L"!!");
    for (const SharedDatabase& each : notes.databases()) {
        const std::wstring server = mark == std::wstring::npos ? each->server : place.substr(0, mark);
        if (each->isAt(server, mark == std::wstring::npos ? place : place.substr(mark + 2))) return each;
    }
    throw std::runtime_error("there is no database \"" + utf8(place) + "\"");
}

struct Found {
    SharedDatabase database;
    SavedNote note;
};

// By its universal identifier, or as NOTEID@DATABASE.
Found documentNamed(const Notes& notes, const std::wstring& id)
{
    const std::size_t mark = id.find(L'@');
    if (mark != std::wstring::npos) {
        const SharedDatabase database = databaseNamed(notes, id.substr(mark + 1));
        if (const SavedNote note = database->find(numberOf(L"0x" + id.substr(0, mark), "note ID")))
            return {database, note};
    }
    for (const SharedDatabase& each : notes.databases())
        if (const SavedNote note = each->findUniversal(id)) return {each, note};
    throw std::runtime_error("there is no document \"" + utf8(id) + "\"");
}

std::wstring placeOf(const std::wstring& server, const std::wstring& filePath)
{
    return server.empty() ? filePath : server + L"!!" + filePath;
}

StoreRecord recordOf(const Database& database, const Note& note, bool unsaved)
{
    StoreRecord record = recordOf(note);
    record.fields.insert(record.fields.begin(), {L"@Database", placeOf(database.server, database.filePath)});
    if (unsaved) record.fields.insert(record.fields.begin(), {L"@Unsaved", L"True"});
    return record;
}

// The saved documents of one database or of all, then what is displayed of
// them with changes that are not saved.
std::wstring documentRecords(const Notes& notes, std::wstring_view place)
{
    const SharedDatabase only = place.empty() ? nullptr : databaseNamed(notes, std::wstring(place));
    std::vector<StoreRecord> records;
    for (const SharedDatabase& each : notes.databases())
        if (!only || each == only)
            for (const SavedNote& note : each->notes()) records.push_back(recordOf(*each, *note, false));
    for (const DocumentWindow& window : notes.workspace().windows()) {
        const OpenNote& note = *window.note;
        if (note.hasChanges() && (!only || note.database() == only))
            records.push_back(recordOf(*note.database(), note.note(), true));
    }
    return storeText(records);
}

std::wstring databaseLines(const Notes& notes)
{
    std::vector<std::wstring> lines;
    for (const SharedDatabase& each : notes.databases())
        lines.push_back(placeOf(each->server, each->filePath) + L"\t" + escaped(each->title) + L"\t" +
                        std::to_wstring(each->notes().size()) + (each->canBeOpened ? L"" : L"\tclosed"));
    return joined(lines);
}

std::wstring environmentLines(const Notes& notes)
{
    std::vector<std::wstring> lines;
    for (const auto& [name, value] : notes.environment()) lines.push_back(name + L"=" + escaped(value));
    return joined(lines);
}

std::wstring windowLines(Notes& notes)
{
    const DocumentWindow* const front = notes.workspace().current();
    std::vector<std::wstring> lines;
    for (const DocumentWindow& window : notes.workspace().windows()) {
        const std::wstring id = window.note->isNew() ? L"unsaved" : window.note->saved()->universalId;
        lines.push_back(escaped(window.title()) + L"\t" + window.note->note().text(names::form) + L"\t" + id + L"\t" +
                        (window.editing ? L"edit" : L"read") + (&window == front ? L"\tfront" : L""));
    }
    return joined(lines);
}

std::wstring iconLines(const Notes& notes)
{
    std::vector<std::wstring> lines;
    for (const Icon& icon : notes.workspace().icons())
        lines.push_back(placeOf(icon.server, icon.filePath) +
                        (&icon == notes.workspace().highlighted() ? L"\thighlighted" : L""));
    return joined(lines);
}

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
    const Found found = documentNamed(notes, takeWord(text));
    Note contents = *found.note;
    change(contents, oneRecord(text));
    found.database->replace(found.note, std::move(contents));
    notes.changed();
    return L"ok";
}

std::wstring remove(Notes& notes, const std::wstring& id)
{
    const Found found = documentNamed(notes, id);
    found.database->remove(found.note);
    notes.changed();
    return L"ok";
}

// The user opens a document: in a copy of its own.
std::wstring open(Notes& notes, std::wstring_view text)
{
    const Found found = documentNamed(notes, takeWord(text));
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

std::wstring setAvailable(Notes& notes, std::wstring_view text)
{
    const SharedDatabase database = databaseNamed(notes, takeWord(text));
    if (text != L"on" && text != L"off") throw std::runtime_error("available DATABASE on, or off");
    database->canBeOpened = text == L"on";
    notes.changed();
    return L"ok";
}

std::wstring setMissing(Notes& notes, std::wstring_view text)
{
    if (text != L"array" && text != L"text") throw std::runtime_error("missing array, or text");
    notes.behaviour.missingItemIsArray = text == L"array";
    notes.changed();
    return L"ok";
}

std::wstring setArrays(Notes& notes, std::wstring_view text)
{
    if (text != L"variant" && text != L"typed") throw std::runtime_error("arrays variant, or typed");
    notes.behaviour.typedArrays = text == L"typed";
    notes.changed();
    return L"ok";
}

std::wstring setIdentifiers(Notes& notes, std::wstring_view text)
{
    if (text != L"own" && text != L"shared") throw std::runtime_error("identifiers own, or shared");
    notes.behaviour.ownIdentifiers = text == L"own";
    notes.changed();
    return L"ok";
}

std::wstring setServerName(Notes& notes, std::wstring_view text)
{
    if (text != L"on" && text != L"off") throw std::runtime_error("server-name on, or off");
    notes.behaviour.hasServerName = text == L"on";
    notes.changed();
    return L"ok";
}

std::wstring setDataFolder(Notes& notes, std::wstring_view text)
{
    notes.behaviour.dataFolder = text;
    notes.changed();
    return L"ok";
}

std::wstring setModified(Notes& notes, std::wstring_view text)
{
    const SharedDatabase database = databaseNamed(notes, takeWord(text));
    database->tellModified(dateFromIso(text));
    return L"ok";
}

std::wstring setIndex(Notes& notes, std::wstring_view text)
{
    const SharedDatabase database = databaseNamed(notes, takeWord(text));
    if (text != L"stale" && text != L"updated") throw std::runtime_error("index DATABASE stale, or updated");
    if (!database->fullTextIndexed) throw std::runtime_error("the database has no full-text index");
    text == L"stale" ? database->leaveIndexBehind() : database->updateIndex();
    return L"ok";
}

}

std::optional<std::wstring> Notes::command(const std::wstring& word, std::wstring_view rest)
{
    if (word == L"documents") return documentRecords(*this, rest);
    if (word == L"databases") return databaseLines(*this);
    if (word == L"environment") return environmentLines(*this);
    if (word == L"windows") return windowLines(*this);
    if (word == L"icons") return iconLines(*this);
    if (word == L"add") return add(*this, rest);
    if (word == L"change") return change(*this, rest);
    if (word == L"delete") return remove(*this, std::wstring(rest));
    if (word == L"open") return open(*this, rest);
    if (word == L"show") return show(*this, rest);
    if (word == L"front") return toForeground(*this, rest);
    if (word == L"back") return workspace_.screen().leaveForeground(), L"ok";
    if (word == L"close") return workspace_.close(windowOf(*this, rest)), L"ok";
    if (word == L"save") return saveAs(workspace_, windowOf(*this, rest)), L"ok";
    if (word == L"close-windows") return closeWindows(workspace_, false);
    if (word == L"save-windows") return closeWindows(workspace_, true);
    if (word == L"available") return setAvailable(*this, rest);
    if (word == L"missing") return setMissing(*this, rest);
    if (word == L"arrays") return setArrays(*this, rest);
    if (word == L"identifiers") return setIdentifiers(*this, rest);
    if (word == L"modified") return setModified(*this, rest);
    if (word == L"server-name") return setServerName(*this, rest);
    if (word == L"data-folder") return setDataFolder(*this, rest);
    if (word == L"index") return setIndex(*this, rest);
    if (word == L"frame") return workspace_.screen().moveIntoFrame(), L"ok";
    return std::nullopt;
}

}

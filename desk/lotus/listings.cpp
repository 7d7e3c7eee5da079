#include "desk/lotus/listings.h"

#include "desk/common/text.h"
#include "desk/lotus/document_records.h"
#include "desk/lotus/naming.h"

namespace desk::lotus {

namespace {

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

}

std::optional<std::wstring> listing(Notes& notes, const std::wstring& word, std::wstring_view rest)
{
    if (word == L"documents") return documentRecords(notes, rest);
    if (word == L"databases") return databaseLines(notes);
    if (word == L"environment") return environmentLines(notes);
    if (word == L"windows") return windowLines(notes);
    if (word == L"icons") return iconLines(notes);
    return std::nullopt;
}

}

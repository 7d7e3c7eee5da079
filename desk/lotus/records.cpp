#include "desk/lotus/records.h"

#include "desk/common/text.h"
#include "desk/lotus/document_records.h"

#include <stdexcept>

namespace desk::lotus {

namespace {

bool truthOf(const std::wstring& text)
{
    if (text != L"True" && text != L"False") throw std::runtime_error("neither True nor False");
    return text == L"True";
}

// Reads the records one after the other; forms, views and documents belong to
// the database before them.
class Reader {
public:
    Contents read(const std::vector<StoreRecord>& records)
    {
        for (const StoreRecord& record : records) {
            try {
                read(record);
            } catch (const std::exception& error) {
                refuseRecord(record, error.what());
            }
        }
        return std::move(contents_);
    }

private:
    void read(const StoreRecord& record)
    {
        if (record.kind == L"notes") readSettings(record);
        else if (record.kind == L"environment")
            contents_.environment.insert(contents_.environment.end(), record.fields.begin(), record.fields.end());
        else if (record.kind == L"database") readDatabase(record);
        else if (record.kind != L"form" && record.kind != L"view" && record.kind != L"document")
            throw std::runtime_error("is no kind of record");
        else if (contents_.databases.empty()) throw std::runtime_error("stands before the first [database]");
        else if (record.kind == L"form") readForm(record);
        else if (record.kind == L"view") readView(record);
        else readDocument(record);
    }

    [[noreturn]] static void refuse(const std::wstring& name)
    {
        throw std::runtime_error("has no field \"" + utf8(name) + "\"");
    }

    Database& database() { return *contents_.databases.back(); }

    void readSettings(const StoreRecord& record)
    {
        for (const auto& [name, value] : record.fields) {
            if (name == L"UserName") contents_.userName = value;
            else if (name == L"Version") contents_.version = value;
            else if (name == L"MissingItem") contents_.behaviour.missingItemIsArray = value != L"text";
            else if (name == L"Arrays") contents_.behaviour.typedArrays = value == L"typed";
            else if (name == L"Identifiers") contents_.behaviour.ownIdentifiers = value == L"own";
            else if (name == L"ServerName") contents_.behaviour.hasServerName = truthOf(value);
            else if (name == L"DataFolder") contents_.behaviour.dataFolder = value;
            else refuse(name);
        }
    }

    void readDatabase(const StoreRecord& record)
    {
        const auto made = std::make_shared<Database>();
        bool icon = false;
        for (const auto& [name, value] : record.fields) {
            if (name == L"Server") made->server = value;
            else if (name == L"File") made->filePath = value;
            else if (name == L"Title") made->title = value;
            else if (name == L"Open") made->canBeOpened = truthOf(value);
            else if (name == L"FullTextIndex") made->fullTextIndexed = truthOf(value);
            else if (name == L"Icon") icon = truthOf(value);
            else refuse(name);
        }
        if (made->filePath.empty()) throw std::runtime_error("has no File");
        for (const SharedDatabase& other : contents_.databases)
            if (other->isAt(made->server, made->filePath)) throw std::runtime_error("is there twice");
        contents_.databases.push_back(made);
        if (icon) contents_.icons.push_back({made->server, made->filePath});
    }

    void readForm(const StoreRecord& record)
    {
        Form form;
        for (const auto& [name, value] : record.fields) {
            if (name == L"Name") form.name = value;
            else if (name == L"Alias") form.aliases.push_back(value);
            else if (name == L"Title") form.title = &itemName(value);
            else if (name == L"Field") {
                const auto [field, type] = typedName(value);
                form.fields.push_back({field, type});
            } else refuse(name);
        }
        database().forms.push_back(std::move(form));
    }

    void readView(const StoreRecord& record)
    {
        View view;
        for (const auto& [name, value] : record.fields) {
            if (name == L"Name") view.names.insert(view.names.begin(), value);
            else if (name == L"Alias") view.names.push_back(value);
            else if (name == L"Key") view.sorted.push_back(&itemName(value));
            else if (name == L"Form") view.forms.push_back(value);
            else if (name == L"Default") view.isDefault = truthOf(value);
            else refuse(name);
        }
        if (view.names.empty()) throw std::runtime_error("has no Name");
        database().add(std::move(view));
    }

    void readDocument(const StoreRecord& record)
    {
        Note note = noteOf(record);
        if (note.noteId != 0 && database().find(note.noteId)) throw std::runtime_error("the NoteID is used twice");
        if (!note.universalId.empty() && database().findUniversal(note.universalId))
            throw std::runtime_error("the UniversalID is used twice");
        database().add(std::move(note));
    }

    Contents contents_;
};

StoreRecord recordOf(const Database& database, const std::vector<Icon>& icons)
{
    StoreRecord record{L"database", {}, 0};
    if (!database.server.empty()) record.add(L"Server", database.server);
    record.add(L"File", database.filePath);
    if (!database.title.empty()) record.add(L"Title", database.title);
    if (!database.canBeOpened) record.add(L"Open", L"False");
    if (database.fullTextIndexed) record.add(L"FullTextIndex", L"True");
    for (const Icon& icon : icons)
        if (database.isAt(icon.server, icon.filePath)) record.add(L"Icon", L"True");
    return record;
}

StoreRecord recordOf(const Form& form)
{
    StoreRecord record{L"form", {}, 0};
    record.add(L"Name", form.name);
    for (const std::wstring& alias : form.aliases) record.add(L"Alias", alias);
    if (form.title) record.add(L"Title", form.title->spelling);
    for (const FormField& field : form.fields) record.add(L"Field", typedText(*field.name, field.type));
    return record;
}

StoreRecord recordOf(const View& view)
{
    StoreRecord record{L"view", {}, 0};
    for (const std::wstring& name : view.names) record.add(&name == view.names.data() ? L"Name" : L"Alias", name);
    for (const ItemName* key : view.sorted) record.add(L"Key", key->spelling);
    for (const std::wstring& form : view.forms) record.add(L"Form", form);
    if (view.isDefault) record.add(L"Default", L"True");
    return record;
}

StoreRecord settingsRecord(const Contents& contents)
{
    StoreRecord record{L"notes", {}, 0};
    record.add(L"UserName", contents.userName);
    record.add(L"Version", contents.version);
    if (!contents.behaviour.missingItemIsArray) record.add(L"MissingItem", L"text");
    if (contents.behaviour.typedArrays) record.add(L"Arrays", L"typed");
    if (contents.behaviour.ownIdentifiers) record.add(L"Identifiers", L"own");
    if (!contents.behaviour.hasServerName) record.add(L"ServerName", L"False");
    if (!contents.behaviour.dataFolder.empty()) record.add(L"DataFolder", contents.behaviour.dataFolder);
    return record;
}

}

Contents contentsOf(const std::vector<StoreRecord>& records)
{
    return Reader().read(records);
}

std::vector<StoreRecord> recordsOf(const Contents& contents)
{
    std::vector<StoreRecord> records{settingsRecord(contents)};
    if (!contents.environment.empty()) records.push_back({L"environment", contents.environment, 0});
    for (const SharedDatabase& database : contents.databases) {
        records.push_back(recordOf(*database, contents.icons));
        for (const Form& form : database->forms) records.push_back(recordOf(form));
        for (const View& view : database->views()) records.push_back(recordOf(view));
        for (const SavedNote& note : database->notes()) records.push_back(recordOf(*note));
    }
    return records;
}

}

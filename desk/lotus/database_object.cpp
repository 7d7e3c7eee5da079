// NotesDatabase: a database that a client asked for, open or not.
#include "automation/text.h"
#include "desk/common/text.h"
#include "desk/lotus/document_object.h"
#include "desk/lotus/errors.h"
#include "desk/lotus/objects.h"

#include <cwchar>

namespace desk::lotus {

namespace {

class DatabaseObject final : public NotesTable<DatabaseObject> {
public:
    DatabaseObject(Notes& notes, SharedDatabase database, std::wstring place, std::wstring filePath)
        : NotesTable(notes, L"NotesDatabase"), notes_(notes), database_(std::move(database)), server_(std::move(place)),
          filePath_(std::move(filePath))
    {}
    static const std::vector<MemberRow<DatabaseObject>>& members();

private:
    const SharedDatabase& database() const
    {
        if (!database_) raiseNotOpen();
        return database_;
    }

    // The place may be given anew only while the object stands for none.
    Value open(const IncomingCall& call)
    {
        const std::wstring place = call.arguments.isGiven(0) ? call.arguments.text(0) : L"";
        const std::wstring filePath = call.arguments.isGiven(1) ? call.arguments.text(1) : L"";
        if (filePath_.empty()) {
            server_ = place;
            filePath_ = filePath;
        } else if (!filePath.empty() && !automation::equalIgnoringCase(filePath, filePath_)) {
            raise(numbers::notesError, L"Database object is already open on another database");
        }
        const SharedDatabase found = notes_.database(server_, filePath_);
        if (!found || !found->canBeOpened) return false;
        database_ = found;
        return true;
    }

    Value view(const std::wstring& name) const { return viewValue(notes_, database(), database()->view(name)); }

    Value documentById(const std::wstring& id) const
    {
        wchar_t* end = nullptr;
        const unsigned long noteId = std::wcstoul(id.c_str(), &end, 16);
        return documentValue(notes_, database(), *end ? nullptr : database()->find(noteId));
    }

    Value documentByUniversalId(const std::wstring& id) const
    {
        const SavedNote note = database()->findUniversal(id);
        if (!note) raise(numbers::notesError, L"Invalid universal id");
        return documentValue(notes_, database(), note);
    }

    std::wstring fileName() const
    {
        const std::wstring path = database_ ? database_->filePath : filePath_;
        return path.substr(path.find_last_of(L"\\/") + 1);
    }

    Notes& notes_;
    SharedDatabase database_; // null until it is open
    std::wstring server_;
    std::wstring filePath_;
};

const std::vector<MemberRow<DatabaseObject>>& DatabaseObject::members()
{
    static const std::vector<MemberRow<DatabaseObject>> rows{
        {L"IsOpen", 0x201, server::readOnly, 0, 0,
         [](DatabaseObject& self, const IncomingCall&) -> Value { return self.database_ != nullptr; }},
        {L"Open", 0x202, server::method, 0, 2,
         [](DatabaseObject& self, const IncomingCall& call) -> Value { return self.open(call); }},
        {L"Server", 0x203, server::readOnly, 0, 0,
         [](DatabaseObject& self, const IncomingCall&) -> Value {
             return self.database_ ? self.database_->server : self.server_;
         }},
        {L"FilePath", 0x204, server::readOnly, 0, 0,
         [](DatabaseObject& self, const IncomingCall&) -> Value {
             return self.database_ ? self.notes_.reportedPath(*self.database_) : self.filePath_;
         }},
        {L"FileName", 0x205, server::readOnly, 0, 0,
         [](DatabaseObject& self, const IncomingCall&) -> Value { return self.fileName(); }},
        {L"Title", 0x206, server::readOnly, 0, 0,
         [](DatabaseObject& self, const IncomingCall&) -> Value {
             return self.database_ ? self.database_->title : std::wstring();
         }},
        {L"GetView", 0x207, server::method, 1, 1,
         [](DatabaseObject& self, const IncomingCall& call) -> Value { return self.view(call.arguments.text(0)); }},
        {L"CreateDocument", 0x208, server::method, 0, 0,
         [](DatabaseObject& self, const IncomingCall&) -> Value {
             return documentValue(self.notes_, std::make_shared<OpenNote>(self.database()));
         }},
        {L"GetDocumentByID", 0x209, server::method, 1, 1,
         [](DatabaseObject& self, const IncomingCall& call) -> Value {
             return self.documentById(call.arguments.text(0));
         }},
        {L"GetDocumentByUNID", 0x20A, server::method, 1, 1,
         [](DatabaseObject& self, const IncomingCall& call) -> Value {
             return self.documentByUniversalId(call.arguments.text(0));
         }},
        {L"LastModified", 0x20C, server::readOnly, 0, 0,
         [](DatabaseObject& self, const IncomingCall&) -> Value {
             return Value::date(self.database()->lastModified());
         }},
        {L"IsFTIndexed", 0x20B, server::readOnly, 0, 0,
         [](DatabaseObject& self, const IncomingCall&) -> Value { return self.database()->fullTextIndexed; }},
    };
    return rows;
}

}

Value databaseValue(Notes& notes, const SharedDatabase& database)
{
    if (!database) return automation::Object();
    return server::valueOf(server::make<DatabaseObject>(notes, database, database->server, database->filePath));
}

Value closedDatabaseValue(Notes& notes, const std::wstring& place, const std::wstring& filePath)
{
    return server::valueOf(server::make<DatabaseObject>(notes, nullptr, place, filePath));
}

}

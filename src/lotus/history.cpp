#include "lotus/history.h"

#include "common/call_type.h"
#include "common/error_trap.h"
#include "common/phone_number.h"
#include "common/text.h"
#include "lotus/documents.h"
#include "lotus/number_search.h"
#include "lotus/open_books.h"

namespace hublink {

namespace {

using automation::Object;
using automation::Value;

void append(const Object& document, const std::wstring& item, const Value& value)
{
    document.call(L"AppendItemValue", {item, value});
}

// The other party, and the link to its document in the address books.
void appendParty(LotusSession& session, const Object& document, const CallLogDescription& items,
                 const SoftphoneHistoryItem& call, const std::wstring& number)
{
    LotusSearchResult search = SearchByNumber(session, number, Show::no);
    LotusPerson& party = search.person;
    if (!search.isFound) {
        party.lastName = call.lastName();
        party.firstName = call.firstName();
    }
    append(document, items.PhoneNumber, number);
    append(document, items.FirstName, party.firstName);
    append(document, items.LastName, party.lastName);
    append(document, items.InfoSupdocNoteId, party.noteId);
    append(document, items.InfoSupServer, search.book.Server);
    append(document, items.InfoSupBase, search.book.Base);
}

void appendCall(const LotusSession& session, const Object& document, const CallLogDescription& items,
                const SoftphoneHistoryItem& call)
{
    const Value state = call.state();
    const Value incoming = call.incoming();
    const Value acknowledged = call.acknowledged();
    append(document, items.State, state);
    append(document, items.Incoming, incoming);
    append(document, items.Acknowledged, acknowledged);
    append(document, items.BeginDate, call.beginDate());
    append(document, items.EndDate, call.endDate());
    const std::wstring type = callTypeText(incoming.isTrue(), state, [&] { return acknowledged; });
    append(document, items.TypeCall, TranslateCallType(type, session.dictionary));
}

// Only a user who has the history in front sees a difference.
void refreshIfInFront(const Object& workspace, const Object& history)
{
    const Object front = workspace.get(L"CurrentDatabase").object();
    if (!front) return;
    const Object database = front.get(L"Database").object();
    if (lowerCase(database.get(L"FileName").text()) == lowerCase(history.get(L"FileName").text()))
        workspace.call(L"VIEWREFRESH");
}

void refreshView(const LotusSession& session, const Object& history)
{
    const std::shared_ptr<OpenBooks> open = currentOpenBooks(session);
    const Object workspace = open->acquireWorkspace();
    refreshIfInFront(workspace, history);
    open->returnWorkspace(workspace);
}

}

std::wstring CreateHistoryDocument(LotusSession& session, const SoftphoneHistoryItem& item)
{
    std::wstring noteId;
    if (!session.LotusReady) return noteId;
    trapErrors([&] {
        const CallLogDescription items = session.LotusCallLog;
        const Object history = session.HistoryDatabase;
        const Object document = history.get(L"CREATEDOCUMENT").object();
        document.put(L"Form", items.Form);
        document.put(L"Type", items.TypeForm);
        const std::wstring number = item.number();
        if (!number.empty()) appendParty(session, document, items, item, StripPhoneNumber(number));
        appendCall(session, document, items, item);
        saveDocument(document);
        noteId = document.get(L"NoteId").text();
        refreshView(session, history);
    });
    return noteId;
}

}

#include "lotus/current_document.h"

#include "common/error_trap.h"
#include "lotus/documents.h"
#include "lotus/mail_search.h"
#include "lotus/number_search.h"

#include <utility>

namespace hublink {

namespace {

using automation::Object;

constexpr const wchar_t* numberItem = L"Tel";

// The document in front, as the client shows it and as it is stored.
struct FrontDocument {
    Object workspace;
    Object shown;
    Object stored;
};

// False when there is none.
bool readFrontDocument(FrontDocument& front)
{
    front.shown = front.workspace.get(L"CURRENTDOCUMENT").object();
    if (front.shown) front.stored = front.shown.get(L"DOCUMENT").object();
    return static_cast<bool>(front.stored);
}

// Saves what was changed and shows it anew, for reading, in place of the copy
// that is open.
void saveAndReopen(const FrontDocument& front)
{
    saveDocument(front.stored);
    front.workspace.call(L"EDITDOCUMENT", {false, front.stored});
    front.shown.call(L"Close");
}

std::wstring storedNumber(const Object& mail)
{
    const Object item = mail.get(L"GetFirstItem", {numberItem}).object();
    return item ? firstItemValue(mail, numberItem) : L"";
}

// The sender's names go to `offered` as soon as they are known.
std::wstring refreshMailNumber(LotusSession& session, const FrontDocument& mail, Party& offered)
{
    const std::wstring current = storedNumber(mail.stored);
    if (!current.empty() && !session.bAlwaysVerifyPhoneNumber) return current;
    const std::wstring address = FirstNonEmptyItemValue(mail.stored, {L"From"});
    Party sender;
    if (session.bCallInMail && !address.empty()) SearchByMail(session, address, sender, Show::no);
    const std::wstring found = std::exchange(sender.number, L"");
    offered = sender;
    // What the user has entered is never overwritten by nothing, and a mail
    // that is being written is not touched.
    if (found.empty() || found == current || mail.shown.get(L"EditMode").isTrue()) return current;
    mail.stored.call(L"ReplaceItemValue", {numberItem, found});
    saveAndReopen(mail);
    return found;
}

std::wstring refreshCallLink(LotusSession& session, const FrontDocument& call)
{
    const CallLogDescription items = session.LotusCallLog;
    const std::wstring number = firstItemValue(call.stored, items.PhoneNumber);
    if (number.empty()) return number;
    const std::wstring storedLink = firstItemValue(call.stored, items.InfoSupdocNoteId);
    const LotusSearchResult party = SearchByNumber(session, number, Show::no);
    const std::wstring& link = party.person.noteId;
    if (link == storedLink) return number;
    const auto replace = [&](const std::wstring& item, const std::wstring& value) {
        call.stored.call(L"ReplaceItemValue", {item, value});
    };
    replace(items.InfoSupdocNoteId, link);
    replace(items.InfoSupServer, party.book.Server);
    replace(items.InfoSupBase, party.book.Base);
    replace(items.InfoSupdocNoteId, link);
    saveAndReopen(call);
    return number;
}

}

Party UpdateCurrentDocumentNumber(LotusSession& session)
{
    Party offered;
    if (!session.LotusReady) return offered;
    trapErrors([&] {
        FrontDocument front{notesWorkspace(), {}, {}};
        const DatabaseNames database(front.workspace.get(L"CurrentDatabase").object().get(L"Database").object());
        // Its answer is not used, so a client that cannot give it loses nothing.
        trapErrors([&] { front.workspace.get(L"CurrentView"); });
        if (IsSameDatabase(database, session.MailServer, session.MailFile)) {
            if (readFrontDocument(front)) offered.number = refreshMailNumber(session, front, offered);
        } else if (IsSameDatabase(database, session.LotusCallLog.Server, session.LotusCallLog.Base)) {
            if (readFrontDocument(front)) offered.number = refreshCallLink(session, front);
        }
    });
    return offered;
}

}

#include "lotus/current_document.h"

#include "common/error_trap.h"
#include "lotus/documents.h"
#include "lotus/search.h"

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
bool takeFrontDocument(FrontDocument& front)
{
    front.shown = front.workspace.get(L"CURRENTDOCUMENT").object();
    if (front.shown) front.stored = front.shown.get(L"DOCUMENT").object();
    return static_cast<bool>(front.stored);
}

// Saves what was changed and shows it anew, for reading, in place of the copy
// that is open.
void saveAndReopen(const FrontDocument& front)
{
    front.stored.call(L"save", {true, true});
    front.workspace.call(L"EDITDOCUMENT", {false, front.stored});
    front.shown.call(L"Close");
}

std::wstring storedNumber(const Object& mail)
{
    const Object item = mail.get(L"GetFirstItem", {numberItem}).object();
    return item ? firstItemValue(mail, numberItem) : L"";
}

std::wstring numberOfMail(LotusSession& session, const FrontDocument& mail, std::wstring& LastName,
                          std::wstring& FirstName)
{
    const std::wstring current = storedNumber(mail.stored);
    if (!current.empty() && !session.bAlwaysVerifyPhoneNumber) return current;
    const std::wstring sender = FirstNonEmptyItemValue(mail.stored, {L"From"});
    std::wstring found;
    if (session.bCallInMail && !sender.empty()) SearchByMail(session, sender, found, LastName, FirstName, false);
    // What the user has entered is never overwritten by nothing, and a mail
    // that is being written is not touched.
    if (found.empty() || found == current || mail.shown.get(L"EditMode").truth()) return current;
    mail.stored.call(L"ReplaceItemValue", {numberItem, found});
    saveAndReopen(mail);
    return found;
}

std::wstring numberOfCall(LotusSession& session, const FrontDocument& call)
{
    const CallLogDescription items = session.LotusCallLog;
    const std::wstring number = firstItemValue(call.stored, items.PhoneNumber);
    if (number.empty()) return number;
    const std::wstring storedLink = firstItemValue(call.stored, items.InfoSupdocNoteId);
    LotusPerson party;
    LotusAddressBook book;
    SearchByNumber(session, number, party, false, L"", book);
    if (party.NoteId == storedLink) return number;
    const auto replace = [&](const std::wstring& item, const std::wstring& value) {
        call.stored.call(L"ReplaceItemValue", {item, value});
    };
    replace(items.InfoSupdocNoteId, party.NoteId);
    replace(items.InfoSupServer, book.Server);
    replace(items.InfoSupBase, book.Base);
    replace(items.InfoSupdocNoteId, party.NoteId);
    saveAndReopen(call);
    return number;
}

}

std::wstring UpdateCurrentDocumentNumber(LotusSession& session, std::wstring& LastName, std::wstring& FirstName)
{
    std::wstring number;
    if (!session.LotusReady) return number;
    trapErrors([&] {
        FrontDocument front{notesWorkspace(), {}, {}};
        const DatabaseNames database(front.workspace.get(L"CurrentDatabase").object().get(L"Database").object());
        // Its answer is not used, so a client that cannot give it loses nothing.
        trapErrors([&] { front.workspace.get(L"CurrentView"); });
        if (IsSameDatabase(database, session.MailServer, session.MailFile)) {
            if (takeFrontDocument(front)) number = numberOfMail(session, front, LastName, FirstName);
        } else if (IsSameDatabase(database, session.LotusCallLog.Server, session.LotusCallLog.Base)) {
            if (takeFrontDocument(front)) number = numberOfCall(session, front);
        }
    });
    return number;
}

#include "softphone/last_call.h"

#include "common/error_trap.h"
#include "lotus/search.h"
#include "outlook/contact_lookup.h"

namespace {

using automation::Object;

void setVariable(const Object& notes, const wchar_t* name, const std::wstring& value)
{
    notes.call(L"SetEnvironmentVar", {name, value});
}

// The variable with the document is cleared first and set last: an agent that
// finds it filled finds the other two in order.
void publishDocument(LotusSession& lotus, const std::wstring& number, std::wstring& lastName, std::wstring& firstName)
{
    const Object notes = notesSession(lotus);
    setVariable(notes, L"CTI_InfoLastCall_docid", L"");
    LotusPerson person{lastName, firstName, L"", L"", L""};
    LotusAddressBook book;
    SearchByNumber(lotus, number, person, false, L"", book);
    lastName = person.LastName;
    firstName = person.FirstName;
    if (person.NoteId.empty()) return;
    setVariable(notes, L"CTI_InfoLastCall_Server", book.Server);
    setVariable(notes, L"CTI_InfoLastCall_Base", book.Base);
    setVariable(notes, L"CTI_InfoLastCall_docid", person.NoteId);
}

}

void SetLastCallInfo(OutlookSession& outlook, LotusSession& lotus, const std::wstring& Number, std::wstring& LastName,
                     std::wstring& FirstName)
{
    trapErrors([&] {
        LastName.clear();
        FirstName.clear();
        std::wstring mail;
        if (outlook.bOutlookInit) FindOutlookContact(outlook, Number, LastName, FirstName, mail);
        if (lotus.LotusReady) publishDocument(lotus, Number, LastName, FirstName);
    });
}

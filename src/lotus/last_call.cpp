#include "lotus/last_call.h"

#include "lotus/search.h"

namespace {

using automation::Object;

void setVariable(const Object& notes, const wchar_t* name, const std::wstring& value)
{
    notes.call(L"SetEnvironmentVar", {name, value});
}

}

// The variable with the document is cleared first and set last: an agent that
// finds it filled finds the other two in order.
void publishLastCall(LotusSession& session, const std::wstring& number, std::wstring& lastName,
                     std::wstring& firstName)
{
    if (!session.LotusReady) return;
    const Object notes = notesSession(session);
    setVariable(notes, L"CTI_InfoLastCall_docid", L"");
    LotusPerson person{lastName, firstName, L"", L"", L""};
    LotusAddressBook book;
    SearchByNumber(session, number, person, false, L"", book);
    lastName = person.LastName;
    firstName = person.FirstName;
    if (person.NoteId.empty()) return;
    setVariable(notes, L"CTI_InfoLastCall_Server", book.Server);
    setVariable(notes, L"CTI_InfoLastCall_Base", book.Base);
    setVariable(notes, L"CTI_InfoLastCall_docid", person.NoteId);
}

#include "lotus/last_call.h"

#include "lotus/number_search.h"

namespace hublink {

namespace {

using automation::Object;

void setVariable(const Object& notes, const wchar_t* name, const std::wstring& value)
{
    notes.call(L"SetEnvironmentVar", {name, value});
}

}

// The variable with the document is cleared first and set last: an agent that
// finds it filled finds the other two in order.
void publishLastCall(LotusSession& session, Party& party)
{
    if (!session.LotusReady) return;
    const Object notes = notesSession(session);
    setVariable(notes, L"CTI_InfoLastCall_docid", L"");
    const LotusPerson known{party.lastName, party.firstName, L"", L"", L""};
    const auto [isFound, person, book] = SearchByNumber(session, party.number, Show::no, L"", known);
    party.lastName = person.lastName;
    party.firstName = person.firstName;
    if (person.noteId.empty()) return;
    setVariable(notes, L"CTI_InfoLastCall_Server", book.Server);
    setVariable(notes, L"CTI_InfoLastCall_Base", book.Base);
    setVariable(notes, L"CTI_InfoLastCall_docid", person.noteId);
}

}

#include "lotus/phone_message.h"

#include "common/error_trap.h"
#include "common/text.h"
#include "lotus/number_search.h"

namespace hublink {

namespace {

using automation::Object;

std::wstring fullName(const std::wstring& firstName, const std::wstring& lastName)
{
    return trim(firstName + L" " + lastName);
}

// The last choice stands for completeness: a person without a mail address and
// without a full name is not found at all, since one of the two is wanted.
std::wstring addresseeOf(const LotusPerson& person)
{
    if (!person.mail.empty()) return person.mail;
    if (!person.fullName.empty()) return person.fullName;
    return fullName(person.firstName, person.lastName);
}

}

bool SendPhoneMessage(LotusSession& session, const Party& caller, const Party& called)
{
    bool composed = false;
    trapErrors([&] {
        const LotusPerson known{called.lastName, called.firstName, L"", L"", L""};
        const LotusSearchResult search =
            SearchByNumber(session, called.number, Show::no, L"InternetAddress,FullName", known);
        if (!search.isFound) return;
        const Object workspace = notesWorkspace();
        const Object message =
            workspace.get(L"COMPOSEDOCUMENT", {session.MailServer, session.MailFile, L"Phone Message"}).object();
        message.call(L"FieldAppendText", {L"SendTo", addresseeOf(search.person)});
        message.call(L"FieldSetText", {L"PhoneCaller", fullName(caller.firstName, caller.lastName)});
        message.call(L"FieldSetText", {L"PhoneNumber", caller.number});
        message.call(L"FieldSetText", {L"PhoneReason", L"T"});
        message.call(L"GOTOFIELD", {L"Body"});
        composed = true;
    });
    return composed;
}

}

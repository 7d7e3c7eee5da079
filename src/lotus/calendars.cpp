#include "lotus/calendars.h"

#include "automation/array.h"
#include "common/error_trap.h"
#include "lotus/number_search.h"

#include <algorithm>

namespace hublink {

namespace {

using automation::Object;
using automation::Value;

// The mail database is kept once it has answered: Notes also gives an object
// for one that it could not open.
Object openGroupCalendars(LotusSession& session)
{
    Object mail = session.mailDatabase;
    if (!mail) mail = notesSession(session).get(L"GETDATABASE", {session.MailServer, session.MailFile}).object();
    const Object view = mail.get(L"GetView", {L"(GroupCalendarFolder)"}).object();
    session.mailDatabase = mail;
    return view;
}

bool hasMember(const Object& calendar, const std::wstring& fullName)
{
    const auto members = automation::elementsOf(calendar.get(L"GetItemValue", {L"Members"}));
    return std::any_of(members.begin(), members.end(), [&](const Value& member) { return member.text() == fullName; });
}

}

std::wstring GroupCalendarQuery()
{
    return L"[Form] CONTAINS \"(GroupCalendar)\"";
}

void ShowGroupCalendars(LotusSession& session, const std::wstring& number)
{
    if (!session.bShowGrpwAgenda) return;
    trapErrors([&] {
        const LotusSearchResult search = SearchByNumber(session, number, Show::no, L"FullName");
        const std::wstring& fullName = search.person.fullName;
        if (!search.isFound || fullName.empty()) return;
        const Object view = openGroupCalendars(session);
        const std::int32_t count = view.get(L"FTSearch", {GroupCalendarQuery(), std::int16_t{0}}).int32();
        for (std::int32_t i = 1; i <= count; ++i) {
            const Object calendar = view.get(L"GetNthDocument", {i}).object();
            if (hasMember(calendar, fullName)) notesWorkspace().call(L"EDITDOCUMENT", {false, calendar});
        }
    });
}

}

#include "outlook/contact_lookup.h"

#include "common/error_trap.h"
#include "common/phone_number.h"
#include "common/text.h"
#include "outlook/contact_table.h"
#include "outlook/telephone_fields.h"

#include <optional>
#include <utility>

namespace hublink {

namespace {

using automation::Object;
using automation::Value;

Object asContact(const OutlookSession& session, const Value& item)
{
    return item.object().usingIdCache(session.idCaches.contact);
}

// The contact that Outlook's own filter finds; empty when it finds none.
Object findContactByFilter(const OutlookSession& session, const std::wstring& number)
{
    const std::wstring filter = BuildPhoneFilter(StripPhoneNumber(number));
    return asContact(session, contactItems(session).get(L"Find", {filter}));
}

// A contact with the number, and its first field that holds it.
struct Match {
    Object contact;
    const wchar_t* field = nullptr;
    bool needsRewrite = false;
};

// Empty when the contact has not got the number.
std::optional<Match> matchContact(const OutlookSession& session, const Object& contact, const std::wstring& sought)
{
    Match match{contact};
    for (const wchar_t* field : telephoneFields) {
        if (!PhoneNumberMatches(session, sought, contact.get(field).text(), match.needsRewrite)) continue;
        match.field = field;
        return match;
    }
    return std::nullopt;
}

std::optional<Match> findMatchByWalk(const OutlookSession& session, const std::wstring& sought)
{
    const Object items = contactItems(session);
    for (Object item = asContact(session, items.get(L"GetFirst")); item;
         item = asContact(session, items.get(L"GetNext")))
        if (const std::optional<Match> match = matchContact(session, item, sought)) return match;
    return std::nullopt;
}

// The contact that the table has named, if it is there and has the number.
std::optional<Match> matchContactById(const OutlookSession& session, const std::wstring& entryId,
                                      const std::wstring& sought)
{
    std::optional<Match> match;
    trapErrors([&] {
        const Object nameSpace = session.OutlookNameSpace;
        match = matchContact(session, asContact(session, nameSpace.get(L"GetItemFromID", {entryId})), sought);
    });
    return match;
}

// What a walk finds. Where at most one contact can have the number the table finds it
// faster; its answer counts only if the table still has the same number of rows then.
std::optional<Match> findFirstMatch(OutlookSession& session, const std::wstring& sought)
{
    const TableAnswer answer = findPossibleOwner(session, sought);
    if (answer.owner == PossibleOwner::undecided) return findMatchByWalk(session, sought);
    std::optional<Match> match;
    if (answer.owner == PossibleOwner::oneContact) match = matchContactById(session, answer.entryId, sought);
    const bool agreesWithTable = match.has_value() == (answer.owner == PossibleOwner::oneContact);
    return agreesWithTable && isStillValid(answer) ? match : findMatchByWalk(session, sought);
}

// Outlook guards the address and may refuse it: the identifier is read first, so
// that the contact is recognised all the same, and the address last.
void read(const Object& contact, OutlookPerson& person)
{
    person.entryId = contact.get(L"EntryID").text();
    person.lastName = contact.get(L"LastName").text();
    person.firstName = contact.get(L"FirstName").text();
    person.email1Address = contact.get(L"Email1Address").text();
}

}

std::wstring BuildPhoneFilter(const std::wstring& number)
{
    const std::wstring value = replaceAll(number, L"'", L"''");
    std::wstring filter;
    for (const wchar_t* field : telephoneFields) {
        if (!filter.empty()) filter += L" or ";
        filter += L"[" + std::wstring(field) + L"] = '" + value + L"'";
    }
    return filter;
}

bool PhoneNumberMatches(const OutlookSession& session, const std::wstring& sought, const std::wstring& field,
                        bool& needsRewrite)
{
    if (StripPhoneNumber(field) != sought) return false;
    if (field != sought && session.bReplacePhoneNumber) needsRewrite = true;
    return true;
}

Object WalkOutlookContacts(OutlookSession& session, const std::wstring& number)
{
    Object contact;
    trapErrors([&] {
        const std::wstring sought = StripPhoneNumber(number);
        const std::optional<Match> match = findFirstMatch(session, sought);
        if (!match) return;
        if (match->needsRewrite) {
            match->contact.put(match->field, sought);
            saveAndClose(match->contact);
        }
        contact = match->contact;
    });
    return contact;
}

OutlookPerson FindOutlookContact(OutlookSession& session, const std::wstring& number, OutlookPerson known)
{
    OutlookPerson person = std::move(known);
    person.entryId.clear();
    trapErrors([&] {
        Object contact = findContactByFilter(session, number);
        if (contact) read(contact, person);
        if (!person.entryId.empty()) return;
        contact = WalkOutlookContacts(session, number);
        if (contact) read(contact, person);
    });
    return person;
}

bool ShowOutlookContact(OutlookSession& session, const std::wstring& number)
{
    bool shown = false;
    trapErrors([&] {
        Object contact = findContactByFilter(session, number);
        if (!contact) contact = WalkOutlookContacts(session, number);
        if (!contact) return;
        contact.call(L"Display");
        shown = true;
    });
    return shown;
}

}

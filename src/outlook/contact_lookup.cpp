#include "outlook/contact_lookup.h"

#include "common/error_trap.h"
#include "common/phone_number.h"
#include "common/text.h"
#include "outlook/absence.h"
#include "outlook/telephone_fields.h"

namespace {

using automation::Object;
using automation::Value;

Object asContact(const OutlookSession& session, const Value& item)
{
    return item.object().sharing(session.names.contact);
}

// The contact that Outlook's own filter finds; empty when it finds none.
Object filteredContact(const OutlookSession& session, const std::wstring& number)
{
    const std::wstring filter = BuildPhoneFilter(StripPhoneNumber(number));
    return asContact(session, contactItems(session).get(L"Find", {filter}));
}

// The contact's first field with the number; a null pointer when it has none.
const wchar_t* matchingField(const OutlookSession& session, const Object& contact, const std::wstring& sought,
                             bool& needsRewrite)
{
    for (const wchar_t* field : telephoneFields)
        if (PhoneNumberMatches(session, sought, contact.get(field).text(), needsRewrite)) return field;
    return nullptr;
}

// What FindOutlookContact tells of a contact. Outlook guards the address and may
// refuse it: the identifier is read first, so that the contact is recognised all
// the same, and the address last.
struct FoundContact {
    std::wstring& entryId;
    std::wstring& lastName;
    std::wstring& firstName;
    std::wstring& email1Address;

    void readFrom(const Object& contact) const
    {
        entryId = contact.get(L"EntryID").text();
        lastName = contact.get(L"LastName").text();
        firstName = contact.get(L"FirstName").text();
        email1Address = contact.get(L"Email1Address").text();
    }
};

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

bool WalkOutlookContacts(OutlookSession& session, const std::wstring& number, const std::wstring&,
                         const std::wstring&, const std::wstring&, Object& contact)
{
    bool found = false;
    trapErrors(L"WalkOutlookContacts", [&] {
        const std::wstring sought = StripPhoneNumber(number);
        if (absenceIsProved(session, sought)) return;
        const Object items = contactItems(session);
        Object item = asContact(session, items.get(L"GetFirst"));
        bool needsRewrite = false;
        const wchar_t* field = nullptr;
        while (item && !(field = matchingField(session, item, sought, needsRewrite)))
            item = asContact(session, items.get(L"GetNext"));
        if (!item) return;
        if (needsRewrite) {
            item.put(field, sought);
            item.call(L"Close", {std::int16_t{0}});
        }
        contact = item;
        found = true;
    });
    return found;
}

std::wstring FindOutlookContact(OutlookSession& session, const std::wstring& number, std::wstring& lastName,
                                std::wstring& firstName, std::wstring& email1Address)
{
    std::wstring entryId;
    trapErrors(L"FindOutlookContact", [&] {
        const FoundContact found{entryId, lastName, firstName, email1Address};
        Object contact = filteredContact(session, number);
        if (contact) found.readFrom(contact);
        if (entryId.empty() && WalkOutlookContacts(session, number, lastName, firstName, email1Address, contact))
            found.readFrom(contact);
    });
    return entryId;
}

bool ShowOutlookContact(OutlookSession& session, const std::wstring& number)
{
    bool shown = false;
    trapErrors(L"ShowOutlookContact", [&] {
        Object contact = filteredContact(session, number);
        if (!contact && !WalkOutlookContacts(session, number, L"", L"", L"", contact)) return;
        contact.call(L"Display");
        shown = true;
    });
    return shown;
}

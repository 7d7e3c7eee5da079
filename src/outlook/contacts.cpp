#include "outlook/contacts.h"

#include "common/error_trap.h"
#include "common/phone_number.h"
#include "outlook/log_item.h"

namespace hublink {

namespace {

using automation::Object;

Object addContact(OutlookSession& session)
{
    session.answerCache.entries.clear(); // somebody may have the number now
    return contactItems(session).get(L"Add").object().usingIdCache(session.idCaches.contact);
}

// The number is stripped here and below.
void fillAndSave(const Object& item, const Party& contact)
{
    item.put(L"FirstName", contact.firstName);
    item.put(L"LastName", contact.lastName);
    item.put(L"BusinessTelephoneNumber", contact.number);
    saveAndClose(item);
}

void logNewContact(OutlookSession& session, const Party& contact)
{
    session.szLastLogText = L"New contact " + contact.number + L" " + contact.lastName + L" " + contact.firstName;
    LogToOutlookJournal(session, session.szLastLogText);
}

}

std::wstring CreateOutlookContact(OutlookSession& session, const SoftphoneEntry& entry)
{
    std::wstring entryId;
    trapErrors([&] {
        const Object item = addContact(session);
        // The first name is asked for before the last, which `Party` has the other way round.
        const std::wstring number = entry.number();
        const std::wstring firstName = entry.firstName();
        const Party contact{StripPhoneNumber(number), entry.lastName(), firstName};
        fillAndSave(item, contact);
        entryId = item.get(L"EntryID").text();
        logNewContact(session, contact);
    });
    return entryId;
}

std::wstring NewOutlookContact(OutlookSession& session, const Party& party, Show show)
{
    std::wstring entryId;
    trapErrors([&] {
        const Party contact{StripPhoneNumber(party.number), party.lastName, party.firstName};
        const Object item = addContact(session);
        fillAndSave(item, contact);
        if (show == Show::yes) item.call(L"Display");
        entryId = item.get(L"EntryID").text();
        logNewContact(session, contact);
    });
    return entryId;
}

}

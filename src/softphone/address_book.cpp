#include "common/error_trap.h"
#include "common/phone_number.h"
#include "outlook/contact_lookup.h"
#include "outlook/contacts.h"
#include "softphone/identifier_map.h"
#include "softphone/pavex_interface.h"
#include "softphone/softphone_members.h"

using automation::Object;

void PavexInterface::CreateOutlookContactFromPavex(const Object& Obj)
{
    trapErrors(L"CreateOutlookContactFromPavex", [&] {
        const std::wstring entryId = CreateOutlookContact(outlook_, Obj);
        if (entryId.empty()) return;
        insertId(hashID, entryId, softphoneIdOf(Obj), MapApplication::outlook, MapCollection::contacts);
    });
}

void PavexInterface::adressbookPavex_OnRepertoryNewEntry(const Object& eltEntry)
{
    if (!host_.configuration().bgWithRepertory) return;
    if (outlook_.bOutlookInit) CreateOutlookContactFromPavex(eltEntry);
}

void PavexInterface::InsertRepertory()
{
    if (!outlook_.bOutlookInit) return;
    host_.WriteLog(L"Start repertory Synchronisation ");
    trapErrors(L"InsertRepertory", [&] { host_.WriteLog(walkRepertory()); },
               [&] { host_.WriteLog(L"Pb In Repertory Synchronisation"); });
}

// Walks the entries from the last index down; the result is the final log line.
std::wstring PavexInterface::walkRepertory()
{
    const Object book = adressbookPavex;
    ++repertoryWalks_;
    std::int16_t remaining = book.get(softphone::records::count).int16();
    int created = 0;
    while (remaining >= 1) {
        if (host_.configuration().gStop) return L"Abort Repertory Synchronisation";
        --remaining;
        const Object entry = book.get(softphone::records::atIndex, {std::int32_t{remaining}}).object();
        mirrorEntry(entry.sharing(entryNames_), created);
        host_.pause(host_.configuration().tempo1);
    }
    return L"Repertory Synchronisation Ok";
}

void PavexInterface::mirrorEntry(const Object& entry, int& created)
{
    const std::wstring number = StripPhoneNumber(entry.get(L"Number").text());
    const std::wstring id = softphoneIdOf(entry);
    if (!outlook_.bOutlookInit || !mappedId(hashID, id, MapApplication::outlook).empty()) return;

    std::wstring lastName, firstName, mail;
    const std::wstring known = FindOutlookContact(outlook_, number, lastName, firstName, mail);
    if (known.empty()) {
        ++created;
        const std::wstring name = entry.get(L"LastName").text();
        host_.WriteLog(std::to_wstring(created) + L" In OutLook " + number + L" " + name + L" " +
                       entry.get(L"FirstName").text());
        CreateOutlookContactFromPavex(entry);
    } else {
        insertId(hashID, known, id, MapApplication::outlook, MapCollection::contacts);
    }
    host_.pause(host_.configuration().tempo);
}

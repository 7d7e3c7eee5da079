#include "softphone/address_book.h"

#include "common/configuration.h"
#include "common/error_trap.h"
#include "common/phone_number.h"
#include "lotus/contacts.h"
#include "lotus/number_search.h"
#include "lotus/open_books.h"
#include "outlook/contact_lookup.h"
#include "outlook/contacts.h"
#include "softphone/identifier_map.h"
#include "softphone/softphone_members.h"

namespace hublink {

namespace {

using automation::Object;

void logNewContact(SoftphoneSession& session, int created, const wchar_t* where, const std::wstring& number,
                   const SoftphoneEntry& entry)
{
    const std::wstring lastName = entry.lastName(); // asked for first: "+" promises no order
    session.host.WriteLog(std::to_wstring(created) + where + number + L" " + lastName + L" " + entry.firstName());
}

void mirrorInLotus(SoftphoneSession& session, const SoftphoneEntry& entry, const std::wstring& id,
                   const std::wstring& number, int& created)
{
    if (!mappedId(session.hashID, id, MapApplication::lotus).empty()) return;
    const std::wstring known = FindNoteIdInPersonalBook(session.lotus, number);
    if (known.empty()) {
        logNewContact(session, ++created, L" In lotus ", number, entry);
        CreateLotusContactFromPavex(session, entry);
    } else {
        insertId(session.hashID, known, id, MapApplication::lotus, MapCollection::contacts);
    }
    session.host.pause(session.host.configuration().tempo);
}

void mirrorInOutlook(SoftphoneSession& session, const SoftphoneEntry& entry, const std::wstring& id,
                     const std::wstring& number, int& created)
{
    if (!mappedId(session.hashID, id, MapApplication::outlook).empty()) return;
    const std::wstring known = FindOutlookContact(session.outlook, number).entryId;
    if (known.empty()) {
        logNewContact(session, ++created, L" In OutLook ", number, entry);
        CreateOutlookContactFromPavex(session, entry);
    } else {
        insertId(session.hashID, known, id, MapApplication::outlook, MapCollection::contacts);
    }
    session.host.pause(session.host.configuration().tempo);
}

void mirror(SoftphoneSession& session, const SoftphoneEntry& entry, int& created)
{
    const std::wstring number = StripPhoneNumber(entry.number());
    const std::wstring id = textFromSoftphoneId(entry.id());
    if (session.lotus.LotusReady) mirrorInLotus(session, entry, id, number, created);
    if (session.outlook.bOutlookInit) mirrorInOutlook(session, entry, id, number, created);
}

// Walks the entries from the last index down; the result is the final log line.
std::wstring walk(SoftphoneSession& session)
{
    const Object book = session.adressbookPavex;
    std::int16_t remaining = book.get(softphone::records::count).int16();
    ++session.repertoryWalkCount;
    int created = 0;
    while (remaining >= 1) {
        session.host.checkForStopRequest();
        if (session.host.configuration().gStop) return L"Abort Repertory Synchronisation";
        --remaining;
        const Object entry = book.get(softphone::records::atIndex, {std::int32_t{remaining}}).object();
        mirror(session, SoftphoneEntry(entry.usingIdCache(session.idCaches.entry)), created);
        session.host.pause(session.host.configuration().tempo1);
    }
    return L"Repertory Synchronisation Ok";
}

}

void InsertRepertory(SoftphoneSession& session)
{
    if (!session.lotus.LotusReady && !session.outlook.bOutlookInit) return;
    const OpenBooksScope books(session.lotus);
    session.host.WriteLog(L"Start repertory Synchronisation ");
    trapErrors([&] { session.host.WriteLog(walk(session)); },
               [&] { session.host.WriteLog(L"Pb In Repertory Synchronisation"); });
}

void adressbookPavex_OnRepertoryNewEntry(SoftphoneSession& session, const SoftphoneEntry& entry)
{
    if (!session.host.configuration().bgWithRepertory) return;
    if (session.outlook.bOutlookInit) CreateOutlookContactFromPavex(session, entry);
    if (session.lotus.LotusReady) CreateLotusContactFromPavex(session, entry);
}

void CreateOutlookContactFromPavex(SoftphoneSession& session, const SoftphoneEntry& entry)
{
    trapErrors([&] {
        const std::wstring entryId = CreateOutlookContact(session.outlook, entry);
        if (entryId.empty()) return;
        insertId(session.hashID, entryId, textFromSoftphoneId(entry.id()), MapApplication::outlook,
                 MapCollection::contacts);
    });
}

void CreateLotusContactFromPavex(SoftphoneSession& session, const SoftphoneEntry& entry)
{
    trapErrors([&] {
        const std::wstring noteId = CreateContactFromEntry(session.lotus, entry);
        if (noteId.empty()) return;
        insertId(session.hashID, noteId, textFromSoftphoneId(entry.id()), MapApplication::lotus,
                 MapCollection::contacts);
    });
}

}

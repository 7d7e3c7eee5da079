#include "common/error_trap.h"
#include "common/phone_number.h"
#include "lotus/contacts.h"
#include "lotus/open_books.h"
#include "lotus/search.h"
#include "outlook/contact_lookup.h"
#include "outlook/contacts.h"
#include "softphone/pavex_interface.h"
#include "softphone/softphone_members.h"

using automation::Object;

void PavexInterface::CreateOutlookContactFromPavex(const SoftphoneEntry& Obj)
{
    trapErrors([&] {
        const std::wstring entryId = CreateOutlookContact(outlook_, Obj);
        if (entryId.empty()) return;
        insertId(hashID, entryId, textFromSoftphoneId(Obj.id()), MapApplication::outlook, MapCollection::contacts);
    });
}

void PavexInterface::CreateLotusContactFromPavex(const SoftphoneEntry& Obj)
{
    trapErrors([&] {
        const std::wstring noteId = CreateContactFromEntry(lotus_, Obj);
        if (noteId.empty()) return;
        insertId(hashID, noteId, textFromSoftphoneId(Obj.id()), MapApplication::lotus, MapCollection::contacts);
    });
}

void PavexInterface::adressbookPavex_OnRepertoryNewEntry(const SoftphoneEntry& eltEntry)
{
    if (!host_.configuration().bgWithRepertory) return;
    if (outlook_.bOutlookInit) CreateOutlookContactFromPavex(eltEntry);
    if (lotus_.LotusReady) CreateLotusContactFromPavex(eltEntry);
}

void PavexInterface::InsertRepertory()
{
    if (!lotus_.LotusReady && !outlook_.bOutlookInit) return;
    const BooksKeptOpen books(lotus_);
    host_.WriteLog(L"Start repertory Synchronisation ");
    trapErrors([&] { host_.WriteLog(walkRepertory()); }, [&] { host_.WriteLog(L"Pb In Repertory Synchronisation"); });
}

// Walks the entries from the last index down; the result is the final log line.
std::wstring PavexInterface::walkRepertory()
{
    const Object book = adressbookPavex;
    std::int16_t remaining = book.get(softphone::records::count).int16();
    ++repertoryWalks_;
    int created = 0;
    while (remaining >= 1) {
        host_.letUserStop();
        if (host_.configuration().gStop) return L"Abort Repertory Synchronisation";
        --remaining;
        const Object entry = book.get(softphone::records::atIndex, {std::int32_t{remaining}}).object();
        mirrorEntry(SoftphoneEntry(entry.sharing(entryNames_)), created);
        host_.pause(host_.configuration().tempo1);
    }
    return L"Repertory Synchronisation Ok";
}

void PavexInterface::mirrorEntry(const SoftphoneEntry& entry, int& created)
{
    const std::wstring number = StripPhoneNumber(entry.number());
    const std::wstring id = textFromSoftphoneId(entry.id());
    if (lotus_.LotusReady) mirrorEntryInLotus(entry, id, number, created);
    if (outlook_.bOutlookInit) mirrorEntryInOutlook(entry, id, number, created);
}

void PavexInterface::mirrorEntryInLotus(const SoftphoneEntry& entry, const std::wstring& id,
                                        const std::wstring& number, int& created)
{
    if (!mappedId(hashID, id, MapApplication::lotus).empty()) return;
    const std::wstring known = FindNoteIdInPersonalBook(lotus_, number);
    if (known.empty()) {
        logNewContact(++created, L" In lotus ", number, entry);
        CreateLotusContactFromPavex(entry);
    } else {
        insertId(hashID, known, id, MapApplication::lotus, MapCollection::contacts);
    }
    host_.pause(host_.configuration().tempo);
}

void PavexInterface::mirrorEntryInOutlook(const SoftphoneEntry& entry, const std::wstring& id,
                                          const std::wstring& number, int& created)
{
    if (!mappedId(hashID, id, MapApplication::outlook).empty()) return;
    std::wstring lastName, firstName, mail;
    const std::wstring known = FindOutlookContact(outlook_, number, lastName, firstName, mail);
    if (known.empty()) {
        logNewContact(++created, L" In OutLook ", number, entry);
        CreateOutlookContactFromPavex(entry);
    } else {
        insertId(hashID, known, id, MapApplication::outlook, MapCollection::contacts);
    }
    host_.pause(host_.configuration().tempo);
}

void PavexInterface::logNewContact(int created, const wchar_t* where, const std::wstring& number,
                                   const SoftphoneEntry& entry)
{
    const std::wstring lastName = entry.lastName();
    host_.WriteLog(std::to_wstring(created) + where + number + L" " + lastName + L" " + entry.firstName());
}

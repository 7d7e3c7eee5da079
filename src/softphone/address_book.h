// Mirrors the softphone's address book in the groupwares' contacts. No error
// leaves these procedures.
#pragma once

#include "common/softphone_records.h"
#include "softphone/softphone_session.h"

namespace hublink {

// Every entry that is not mapped yet is mapped to the contact with its number, or
// becomes a new contact; in each groupware for itself.
void InsertRepertory(SoftphoneSession& session);

// A new entry becomes a contact in each groupware, whoever has its number there.
void adressbookPavex_OnRepertoryNewEntry(SoftphoneSession& session, const SoftphoneEntry& entry);

// A new contact for the entry, and its record in the map.
void CreateOutlookContactFromPavex(SoftphoneSession& session, const SoftphoneEntry& entry);
void CreateLotusContactFromPavex(SoftphoneSession& session, const SoftphoneEntry& entry);

}

// People in the user's personal address book. Nothing is created where none is
// configured. No error leaves these procedures.
#pragma once

#include "common/party.h"
#include "common/show.h"
#include "common/softphone_records.h"
#include "lotus/lotus_session.h"

#include <string>

namespace hublink {

// A new contact: opened for the user to complete and save, or not shown and saved
// at once. Its NoteId, "" on failure.
std::wstring CreateContactDocument(LotusSession& session, const Party& party, Show show);

// Opens the caller's document or, with "NewContact" on, a new contact.
void ShowOrCreateCaller(LotusSession& session, const Party& caller);

// A saved contact for an entry of the softphone's address book. Its NoteId, ""
// on failure; the line in the log is written all the same.
std::wstring CreateContactFromEntry(LotusSession& session, const SoftphoneEntry& entry);

}

// Makes Outlook contacts. Every new contact leaves a line in the log item.
// Callers test `bOutlookInit` first; no error leaves these procedures.
#pragma once

#include "common/party.h"
#include "common/show.h"
#include "common/softphone_records.h"
#include "outlook/outlook_session.h"

#include <string>

namespace hublink {

// A contact for an entry of the softphone's address book. Its EntryID, "" on failure.
std::wstring CreateOutlookContact(OutlookSession& session, const SoftphoneEntry& entry);

// A contact from plain texts, shown or not. Its EntryID, "" on failure.
std::wstring NewOutlookContact(OutlookSession& session, const Party& party, Show show);

}

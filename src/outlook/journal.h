// A call of the softphone's history as an Outlook journal item.
#pragma once

#include "common/softphone_records.h"
#include "outlook/outlook_session.h"

#include <string>

namespace hublink {

// Adds a recipient "first name, blank, last name" to an item; True when the
// item took it. No error leaves it.
bool AddRecipient(OutlookSession& session, const automation::Object& item, const std::wstring& lastName,
                  const std::wstring& firstName);

// Makes the journal item of one call, and with `createContact` a contact for a
// party that Outlook does not know. The journal item's EntryID, "" on failure.
// No error leaves it.
std::wstring CreateOutlookHistoItem(OutlookSession& session, const SoftphoneHistoryItem& historyItem,
                                    bool createContact);

}

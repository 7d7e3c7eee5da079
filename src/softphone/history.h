// Mirrors the softphone's call history in the groupwares: as journal items, as
// documents of the Notes call history. No error leaves these procedures.
#pragma once

#include "common/softphone_records.h"
#include "softphone/softphone_session.h"

#include <string>

namespace hublink {

// Every item that is not mapped yet is mirrored, in each groupware for itself.
void InitHisto(SoftphoneSession& session);

// A new item is mirrored in each groupware; no contact is made for its party.
void histo_OnHistoricNewItem(SoftphoneSession& session, const SoftphoneHistoryItem& item);

// Makes the item's journal item, or its history document, and its record in the map.
// `newContact` lets a contact be made for an unknown party. `id` is the item's
// identifier text where it is known already.
void SetHistoItemOutlook(SoftphoneSession& session, const SoftphoneHistoryItem& item, bool newContact,
                         const std::wstring& id = L"");
void SetHistoItemLotus(SoftphoneSession& session, const SoftphoneHistoryItem& item, const std::wstring& id = L"");

}

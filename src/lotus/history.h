// A call of the softphone's history as a document of the Notes call history.
#pragma once

#include "common/softphone_records.h"
#include "lotus/lotus_session.h"

#include <string>

namespace hublink {

// Saves the document of one call; a user who looks at the history sees it at
// once. Its NoteId, "" on failure. No error leaves it.
std::wstring CreateHistoryDocument(LotusSession& session, const SoftphoneHistoryItem& item);

}

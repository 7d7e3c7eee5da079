// Drops what the identifier map keeps of records that the softphone has no more.
// No error leaves these procedures.
#pragma once

#include "softphone/softphone_session.h"

#include <string>

namespace hublink {

// Drops the map records whose softphone record has gone; none while the
// softphone's list does not answer. The history comes first.
void PurgeId(SoftphoneSession& session);
void PurgeIdRepertory(SoftphoneSession& session);
void PurgeIdHistorique(SoftphoneSession& session);

// Whether the softphone still has the entry, or the history item, of an
// identifier text. False too when that cannot be found out.
bool InPavexRepertory(const SoftphoneSession& session, const std::wstring& id);
bool InPavexHistorique(const SoftphoneSession& session, const std::wstring& id);

}

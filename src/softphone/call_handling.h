// What a call asks for in the groupware. No error leaves these procedures.
#pragma once

#include "common/party.h"
#include "common/softphone_records.h"
#include "softphone/softphone_session.h"

#include <string>

namespace hublink {

// A new call on the line: who calls, and what to show or prepare for it.
void LineObj_OnLineNewCall(SoftphoneSession& session, const SoftphoneCall& call);

// Runs the actions for the last call; `force` even those switched off,
// `sendCallBackMessage` the callback message too.
void DoCallAction(SoftphoneSession& session, bool force, bool sendCallBackMessage);

// Shows the group calendars of the person to whom the last call was forwarded.
void DisplayGroupwareInfo(SoftphoneSession& session);

// Carries out what is switched on (with `force`: everything) for a call: the
// callback message to the person to whom it was forwarded, and that person's
// calendars; then the caller's contact.
void ProcessCallAction(SoftphoneSession& session, const Party& caller, Party destination, const std::wstring& cause,
                       bool force);

}

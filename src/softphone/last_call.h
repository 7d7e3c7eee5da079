// What is known about the party of the last call.
#pragma once

#include "lotus/lotus_session.h"
#include "outlook/outlook_session.h"

#include <string>

// Clears the two names, then fills them from the Outlook contact and from the
// Notes document that own the number; what Notes has replaces what Outlook
// has. A found document is published in the Notes environment, where agents
// read it. No error leaves it.
void SetLastCallInfo(OutlookSession& outlook, LotusSession& lotus, const std::wstring& Number, std::wstring& LastName,
                     std::wstring& FirstName);

// What is known about the party of the last call.
#pragma once

#include "outlook/outlook_session.h"

#include <string>

// Clears the two names, then fills them from the Outlook contact that owns the
// number. No error leaves it.
void SetLastCallInfo(OutlookSession& outlook, const std::wstring& Number, std::wstring& LastName,
                     std::wstring& FirstName);

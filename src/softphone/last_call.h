// What is known about the party of the last call.
#pragma once

#include "common/party.h"
#include "softphone/softphone_session.h"

#include <string>

namespace hublink {

// The names of whoever has the number: of the Outlook contact, or of the Notes
// document where one is found, which is published in the Notes environment, where
// agents read it. No error leaves it.
Party SetLastCallInfo(SoftphoneSession& session, const std::wstring& number);

}

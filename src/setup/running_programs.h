// Hublink at work while it is installed or removed, in whoever's session.
#pragma once

#include "setup/package.h"

#include <windows.h>

#include <string>
#include <vector>

namespace hublink::setup {

// The sessions in which it runs.
std::vector<DWORD> sessionsOfHublink();

// Asks it to stop, through "kill" in the ini file, and waits until it and the map
// server have ended in all sessions. False when one still runs after a minute.
bool stopHublink();

// Starts it in that session, as the session's user and with the rights that he
// works with. False when it cannot be started, as after the user has logged off.
bool startHublinkIn(DWORD session, const std::wstring& program);

}

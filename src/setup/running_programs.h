// Hublink at work while it is installed or removed, in whoever's session.
#pragma once

#include "setup/package.h"

#include <windows.h>

#include <string>
#include <vector>

namespace hublink::setup {

// In any session.
bool isHublinkRunning();

// The sessions in which it runs, as far as Windows tells them.
std::vector<DWORD> sessionsOfHublink();

// Asks it to stop, through "kill" in the ini file, and waits until it has ended in
// all sessions. False when it still runs somewhere after a minute.
bool stopHublink();

// Ends the map server in all sessions: it outlives a Hublink that has ended without
// giving its objects back. Not while Hublink runs. False when one still runs after
// ten seconds; with the system's rights others' can be ended too.
bool endMapServers();

// Starts it in that session, as the session's user and with the rights that he
// works with. False when it cannot be started, as after the user has logged off.
bool startHublinkIn(DWORD session, const std::wstring& program);

}

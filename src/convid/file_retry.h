// File operations are tried again for a while where the reason of their failure passes: virus
// scanners and backups hold files for a moment, servers are away for a moment.
#pragma once

#include "automation/milliseconds.h"

#include <windows.h>

#include <functional>

namespace convid {

// Another program uses the file.
inline bool isInUse(DWORD code)
{
    return code == ERROR_SHARING_VIOLATION || code == ERROR_LOCK_VIOLATION;
}

// Runs `attempt`, which returns a Windows error code, again and again as long
// as that is a passing one, and no longer than `timeout` milliseconds.
template <class IsPassing, class Attempt>
DWORD retryWhile(IsPassing isPassing, automation::Milliseconds timeout, Attempt attempt)
{
    const DWORD start = GetTickCount();
    for (;;) {
        const DWORD result = attempt();
        if (!isPassing(result) || GetTickCount() - start >= timeout) return result;
        Sleep(20);
    }
}

// Runs `replace`, which returns a Windows error code, as long as the file is in
// use or access to it denied, as virus scanners do for a moment, or the connection
// to its server lost; at most `timeout` milliseconds. A try whose answer was lost
// may have been carried out: when there is nothing left to replace with, it was.
DWORD replaceWithRetries(automation::Milliseconds timeout, const std::function<DWORD()>& replace);

}

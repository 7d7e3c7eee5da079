// Which processes of a program run, by its file name.
#pragma once

#include <windows.h>

#include <optional>
#include <vector>

namespace hublink {

// The identifiers of the processes of that executable file name in this user
// session, in the system's order; the name is compared without case. Empty when the
// system cannot list its processes.
std::optional<std::vector<DWORD>> processesNamed(const wchar_t* fileName);

// The same of all users' sessions.
std::optional<std::vector<DWORD>> processesOfAllSessions(const wchar_t* fileName);

}

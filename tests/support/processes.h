// Running processes by name, and the sudden death of the map server.
#pragma once

#include <windows.h>

#include <vector>

namespace support {

// The process identifiers of all running programs of that name.
std::vector<DWORD> processesNamed(const wchar_t* name);

// Ends every map server of this session without a warning.
void killMapServers();

// After the sudden death of a server: its class can be had again. Servers that
// run on have to be started anew afterwards to be reached.
void forgetDeadServers();

bool isWine();

}

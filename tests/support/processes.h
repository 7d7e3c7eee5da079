// Running processes by name, and the sudden death of the map server.
#pragma once

#include <windows.h>

#include <vector>

namespace support {

// The process identifiers of all running programs of that name.
std::vector<DWORD> processesNamed(const wchar_t* name);

// Ends every map server of this session without a warning.
void killMapServers();

bool isWine();

}

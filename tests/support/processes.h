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
// Wine's service numbers its clients, and one whose number nobody bears with the
// next service asks that for ever. A process that means to go on asking begins
// with this, so that it is the first; and the first one afterwards should stay.
void forgetDeadServers();

bool isWine();

}

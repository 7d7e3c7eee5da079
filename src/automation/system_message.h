// What Windows says about an error of its own.
#pragma once

#include <windows.h>

#include <string>

namespace automation {

// In the language of Windows, without the full stop, and with the number, by which it can
// be looked up: "Access is denied (5)". Only the number for a code that Windows does not know.
std::wstring systemMessage(DWORD code);

}

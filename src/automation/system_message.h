// What Windows says about an error of its own.
#pragma once

#include <windows.h>

#include <string>

namespace automation {

// In the language of Windows, without the full stop, and with the number, by which it can
// be looked up: "Access denied (error 5)". Only that for a code that Windows does not know.
std::wstring systemMessage(DWORD code);

}

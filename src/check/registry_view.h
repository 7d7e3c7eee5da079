// Small looks at registry and files that change nothing. A 32-bit program on a 64-bit
// Windows has a registry of its own in places; the other one is asked for expressly.
#pragma once

#include <windows.h>

#include <string>

namespace hublink::check {

// A text value of any length, its environment variables replaced where it is one with
// such; "" without one. `view` is 0, KEY_WOW64_32KEY or KEY_WOW64_64KEY.
std::wstring textInView(HKEY root, const std::wstring& key, const wchar_t* value, REGSAM view);

// Whether the key could be written to; nothing is written.
bool keyIsWritable(HKEY root, const std::wstring& key);

bool isFolder(const std::wstring& path);

}

// The three registry procedures. They report failure through their result
// only. A key that they open under a predefined root stays open: they close
// it only when the root is 0, and so cost one key handle a call.
#pragma once

#include <windows.h>

#include <string>

namespace hublink {

// What RegGetString returns for a value that it cannot read.
inline constexpr const wchar_t* registryNoText = L"--Not String--";

// A text value of up to 255 characters. "" when the key is missing or the
// value is of another type; `registryNoText` when the value is missing or longer.
std::wstring RegGetString(HKEY hInKey, const std::wstring& subkey, const std::wstring& valname);

// Writes a text value into an existing key. "True" when key and write were in
// order, else "False". The length that is given leaves out the terminating NUL;
// the system stores one all the same.
std::wstring RegSetString(HKEY hInKey, const std::wstring& subkey, const std::wstring& valname,
                          const std::wstring& Value);

// Deletes a value. "True" when key and deletion were in order, else "False".
std::wstring RegDeleteString(HKEY hInKey, const std::wstring& subkey, const std::wstring& valname);

}

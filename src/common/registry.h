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
std::wstring RegGetString(HKEY root, const std::wstring& subkey, const std::wstring& name);

// Writes a text value into an existing key. "True" when key and write were in
// order, else "False". The length that is given leaves out the terminating NUL;
// the system stores one all the same.
std::wstring RegSetString(HKEY root, const std::wstring& subkey, const std::wstring& name, const std::wstring& text);

// Deletes a value. "True" when key and deletion were in order, else "False".
std::wstring RegDeleteString(HKEY root, const std::wstring& subkey, const std::wstring& name);

}

// When a file was last changed.
#pragma once

#include <windows.h>

#include <optional>
#include <string>

namespace hublink {

// Empty when the file is missing or cannot be asked.
std::optional<FILETIME> modificationTime(const std::wstring& file);

bool sameTime(const FILETIME& a, const FILETIME& b);

}

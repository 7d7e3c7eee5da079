// A path as it may be passed on.
#pragma once

#include <string>

namespace hublink::check {

// What stands in place of a name.
inline constexpr const wchar_t* hidden = L"***";

// The folders that are named after a user, this one or another, and the server of a shared
// folder are hidden, and so is a short name (ANNAKE~1) that is not one of Windows's own folders.
std::wstring discreetPath(const std::wstring& path);

}

// The section "outlook" of the ini file.
#pragma once

#include "outlook/outlook_session.h"

namespace hublink {

// Below HKEY_LOCAL_MACHINE, where Exchange's client finds its extensions.
inline constexpr const wchar_t* extensionsKey = L"SOFTWARE\\Microsoft\\Exchange\\Client\\Extensions";

// Reads the settings and, while "Extension" is "true", registers the Exchange
// client extension. True when callback template and extension are as before;
// False when one changed, which also ends the session (`bOutlookInit`). An
// error ends the reading with what was read; the result is then False.
bool ReadOutlookIni(OutlookSession& session);

}

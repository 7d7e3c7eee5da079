// What the section "outlook" of the ini file says: read, and nothing else done.
#pragma once

#include "common/ini_file.h"
#include "outlook/outlook_session.h"

#include <string>

namespace hublink {

enum class ExtensionUse { none, registered };

// Returns whether an Exchange client extension is to be registered. Throws AutomationError
// at a value that should be a number and is none. What was not reached stays as it was, and
// so do the extension's two texts while "Extension" is off.
ExtensionUse readOutlookSettings(const IniFile& ini, const std::wstring& programFolder,
                                 OutlookConfiguration& configuration);

}

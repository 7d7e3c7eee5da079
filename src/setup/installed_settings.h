// The ini file in the softphone's folder "Connector": put there, kept, taken away.
#pragma once

#include "setup/action_data.h"

#include <string>

namespace hublink::setup {

// Whether the file there is byte by byte the default one of `programFolder`:
// nobody has changed it since it was installed.
bool isAsInstalled(const std::wstring& programFolder);

// The default file gets all remembered settings. It becomes the one in "Connector"
// where that is missing or as it was installed; an edited one gets the settings
// that are given now, and no other change. Without a softphone nothing more
// happens: the program copies the default file at its first start.
// Throws std::runtime_error for what cannot be written: a file or folder that was made
// goes again then, and no setting is remembered, which comes last.
void installSettings(const std::wstring& programFolder, bool wasAsInstalled, const ActionData& given);

// Removes what installSettings made, but not a file that somebody has edited.
void removeSettings(bool wasAsInstalled);

}

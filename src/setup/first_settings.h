// The settings that whoever rolls the program out gives as properties, as in
//     msiexec /i hublink.msi TYPE=OUTLOOK,LOTUS POPUP=true /qn
// They are remembered in the registry: a repair or an upgrade brings a new default
// ini file, which gets them too.
#pragma once

#include "common/settings_table.h"
#include "setup/action_data.h"
#include "setup/package.h"

#include <string>
#include <vector>

namespace hublink::setup {

// Those that have a property.
const std::vector<Setting>& settingProperties();

// Adds those that are given to `data`.
void addGiven(const Package& package, ActionData& data);

// Writes the settings of `data` into the ini file. Throws std::runtime_error when it cannot be written.
void writeInto(const std::wstring& iniFile, const ActionData& data);

// Remembers those of `given`; returns all that are remembered now.
ActionData remember(const ActionData& given);

// The folder "Connector" that an installation had to make: "" when the softphone had it.
void rememberMadeFolder(const std::wstring& folder);
std::wstring madeFolder();

void forgetAll();

}

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

// Those of `given`, and for the others what is remembered.
ActionData withRemembered(const ActionData& given);

// Remembers those of `given`. Throws std::runtime_error when it cannot.
void remember(const ActionData& given);

// The folder "Connector" that an installation had to make: "" when the softphone had it.
// Remembering throws std::runtime_error when it cannot.
void rememberMadeFolder(const std::wstring& folder);
std::wstring madeFolder();

void forgetAll();

}

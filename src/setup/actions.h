// What the package does beyond Windows Installer's own tables. Those that look run
// at once; those that change something run later, with the system's rights, on
// what the former have left for them under their names.
#pragma once

#include "setup/package.h"

namespace hublink::setup {

// Asks a running Hublink to stop, before its files are in the way; leaves for
// StartHublink, and for StartHublinkAgain after a failure, where it ran. Its map
// server may be another user's, which only the system can end.
void stop(const Package& package);
void endMapServer(const Package& package);
void start(const Package& package);

// Leaves the given settings, and whether the ini file is as it was installed,
// for WriteSettings and RemoveSettings.
void collectSettings(const Package& package);
void writeSettings(const Package& package);
void removeSettings(const Package& package);

}

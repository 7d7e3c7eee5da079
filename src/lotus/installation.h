// Puts the connector's own Notes files beside the user's Notes data.
#pragma once

#include "lotus/lotus_session.h"

namespace hublink {

// Finds the Notes program and data folders in the registry and copies the
// connector's files there, unless they are there already; then the databases
// get their place on the user's workspace. Release 5 takes precedence over 4.
void InstallLotusDatabases(const LotusSession& session);

// Puts the two databases on the workspace. No error leaves it.
void AddDatabasesToWorkspace();

}

// Reaches the server that keeps the identifier map.
#pragma once

#include "automation/object.h"
#include "common/host.h"

namespace hublink {

// A new object of the map server. Where the server is not registered, the
// program that lies beside this one is registered for the current user first.
// Throws AutomationError when none can be made.
automation::Object createIdentifierMap(const Host& host);

}

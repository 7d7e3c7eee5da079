// A server process lives as long as clients hold its objects, also where they have
// died without releasing them. Whoever replaces its file, as an installer does, asks it to end.
#pragma once

#include "automation/owners.h"

namespace automation::server {

// The event by which this process can be asked to end, from any session: by its own
// user and by the system. Empty when it cannot be made.
Handle createEndEvent() noexcept;

// False when that process offers no end, or not to this one's user.
bool requestEnd(DWORD process) noexcept;

}

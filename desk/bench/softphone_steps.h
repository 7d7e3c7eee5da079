// What the steps of a first synchronisation ask of the softphone, whatever the
// groupware: 200 entries, of which every second is known, and 1,000 history items.
#pragma once

#include "desk/bench/groupware.h"

namespace desk::bench {

std::vector<NeededCalls> recordsOfFirstSynchronisation();

}

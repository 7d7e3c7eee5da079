// The calls that the steps of Hublink's work in Notes cannot do without: each value
// asked for once, each database and each view opened once, no look-ups of names.
#pragma once

#include "desk/bench/groupware.h"

namespace desk::bench {

// A caller who stands in the last of three books, and whose document is opened: what
// his names were found by serves for the document too.
std::vector<NeededCalls> notesKnownCallersSteps();

// 200 entries, of which every second is known, and 1,000 history items: what a number
// was found by serves all its calls.
std::vector<NeededCalls> notesFirstSynchronisationSteps();

}

// The calls that the steps of Hublink's work in Outlook cannot do without: each
// value asked for once, no look-ups of names, and in place of a walk over the
// contacts the shortest table that tells as much.
#pragma once

#include "desk/bench/groupware.h"

#include <vector>

namespace desk::bench {

// A caller whom nobody knows, until he is a contact on the screen.
std::vector<NeededCalls> strangersSteps();

// A caller whose number is stored as the softphone tells it.
std::vector<NeededCalls> storedCallersSteps();

// A caller whose number has dots or blanks; in how many telephone fields it is
// looked for until it is found. Kept as it is, it is found by the table again for
// the window; the table itself serves both.
std::vector<NeededCalls> rewrittenCallersSteps(int fields);
std::vector<NeededCalls> keptCallersSteps(int fields);

// Somebody with such a number is called.
std::vector<NeededCalls> calledPartysSteps(int fields);

// Such a caller, forwarded to a colleague with such a number: both are looked for
// twice, and a mail opens besides.
std::vector<NeededCalls> rewrittenForwardedSteps(int callersFields, int colleaguesFields);
std::vector<NeededCalls> keptForwardedSteps(int callersFields, int colleaguesFields);

// The first synchronisation that the bench measures: 200 entries, of which every
// second is known, and 1,000 history items.
std::vector<NeededCalls> firstSynchronisationSteps();

}

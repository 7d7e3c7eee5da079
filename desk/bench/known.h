// How many calls a known caller takes in Outlook, and how long.
#pragma once

#include "desk/bench/report.h"
#include "desk/player/desk.h"

namespace desk::bench {

// A caller whose contact is shown: his number stored as it is dialled, or with dots
// or blanks in the middle and at the end of the folder, rewritten or kept. Then the
// same party called. All over 100, 1,000 and 10,000 contacts, beside the script.
void measureKnown(player::Desk& desk, Report& report);

// A call forwarded between two people with dots and blanks in their numbers.
void measureForwarded(player::Desk& desk, Report& report);

}

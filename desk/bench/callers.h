// How many calls an unknown caller takes in Outlook, and how long.
#pragma once

#include "desk/bench/report.h"
#include "desk/player/desk.h"

namespace desk::bench {

// One unknown caller over 100, 1,000 and 10,000 contacts, who becomes a new
// contact on the screen, beside the same work by the script; then the walk
// over all contacts, in an Outlook that has no tables.
void measureCallers(player::Desk& desk, Report& report);

}

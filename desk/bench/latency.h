// How long a known caller takes to be on the screen.
#pragma once

#include "desk/bench/report.h"
#include "desk/player/desk.h"

namespace desk::bench {

// 200 calls of as many people all over 1,000 contacts, their numbers in various
// layouts: milliseconds from the event to the contact's window, beside the script.
void measureLatency(player::Desk& desk, Report& report);

}

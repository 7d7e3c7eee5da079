// Measures what a resident program may not do: grow, and keep the processor busy.
#pragma once

#include "desk/bench/report.h"
#include "desk/player/desk.h"

namespace desk::bench {

// 2,000 ticks, twice 5,000 calls and an idle minute, all partners up.
void measureLongRun(player::Desk& desk, Report& report);

}

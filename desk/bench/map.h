// How the identifier map's answers depend on the number of its records.
#pragma once

#include "desk/bench/report.h"
#include "desk/player/desk.h"

namespace desk::bench {

// Opening, look-ups and durable insertions with 1,000 and with 200,000 records.
void measureMap(player::Desk& desk, Report& report);

}

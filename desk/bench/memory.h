// What a synchronisation leaves in memory.
#pragma once

#include "desk/bench/groupware.h"
#include "desk/bench/report.h"
#include "desk/player/desk.h"

namespace desk::bench {

// Hublink's private memory after a first synchronisation of 200 history items
// and after one of 2,000.
void measureMemory(player::Desk& desk, Groupware& groupware, Report& report);

}

// How many calls the synchronisations take, and how long.
#pragma once

#include "desk/bench/groupware.h"
#include "desk/bench/report.h"
#include "desk/player/desk.h"

namespace desk::bench {

// 200 entries and 1,000 history items, the first time and when everything is
// mapped, beside the same work by the groupware's script. The script takes so
// long that it does a tenth, which Hublink does for comparison too.
void measureSynchronisation(player::Desk& desk, Groupware& groupware, Report& report);

}

// What Hublink's work in Notes takes, beside the same work by the script.
#pragma once

#include "desk/bench/report.h"
#include "desk/player/desk.h"

namespace desk::bench {

// 200 entries and 1,000 history items, the first time and when everything is
// mapped; then the call of a person who stands in the last of three books with
// 20,000 persons each, to the document on the screen.
void measureNotes(player::Desk& desk, Report& report);

}

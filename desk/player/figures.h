// Measures what a resident program may not do: grow, and keep the processor busy.
#pragma once

#include "desk/player/desk.h"
#include "desk/player/narrator.h"

namespace desk::player {

// An idle minute, 2,000 ticks and 5,000 calls with all partners up. Before and
// after each it prints a line "memory?", where a script may sample the memory
// of hublink.exe: there is no portable way to ask for it.
void measureFigures(Desk& desk, Narrator& narrator);

}

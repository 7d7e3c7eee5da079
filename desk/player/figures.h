// Measures what a resident program may not do: grow, and keep the processor busy.
#pragma once

#include "desk/player/desk.h"
#include "desk/player/narrator.h"

namespace desk::player {

// 2,000 ticks, twice 5,000 calls and an idle minute, all partners up. Where it
// prints a line "memory?" or "processor?" a script may ask the host system what
// hublink.exe uses: asked from here, not every system tells.
void measureFigures(Desk& desk, Narrator& narrator);

}

// How long the player waits for what must come.
#pragma once

#include <windows.h>

namespace desk::player {

inline constexpr DWORD eventTimeout = 15'000; // milliseconds: a call and what follows from it
inline constexpr DWORD startTimeout = 60'000; // an initialisation with its pauses, one a record
inline constexpr DWORD tickTimeout = 12'000;  // a tick, and some work
inline constexpr DWORD quietPeriod = 600;     // nothing happens any more

}

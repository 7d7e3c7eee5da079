// Keeps COM's run-time from taking an interface out of service.
#pragma once

#include <cstddef>

namespace automation::server {

// With the last stub of an interface in a process a run-time may withdraw that interface, and
// wait, in the apartment's own thread, until no call of it is under way. Wine 8 does so and can
// miss the end of the last call, which looks for the event to set while the waiting side still
// makes it: the server then waits for ever, and so do its clients. So a process that offers a
// class has one stub of each interface that it serves from then on until it ends. Where the
// run-time does not withdraw interfaces, these stubs do nothing.

// Makes them, once in a process. Returns for how many interfaces; fewer than there are where
// COM refuses, and the classes are served all the same.
std::size_t keepStandingStubs() noexcept;

}

// Whether the window's thread may call another program at this moment.
#pragma once

namespace hublink {

// Whether COM refuses calls now, inside a message that another thread has sent.
bool comRefusesCalls() noexcept;

// Neither inside another call, in which nothing else of the program's runs, nor where COM
// would refuse it.
bool callsMayGoOut() noexcept;

}

// What the program was started for.
#pragma once

#include <string>
#include <vector>

namespace convid {

enum class Task { registerServer, unregisterServer, serve, wrong };

// `arguments` without the program's own name: exactly one, with "/" or "-",
// in any case. COM starts a server with "-Embedding".
Task taskOf(const std::vector<std::wstring>& arguments);

}

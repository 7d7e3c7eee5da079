#pragma once

#include <string>
#include <vector>

namespace automation {

// The arguments that this process was started with, without the program's own name.
std::vector<std::wstring> processArguments();

}

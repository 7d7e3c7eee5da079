// Time to wait, in the type that Windows takes it in.
#pragma once

#include <windows.h>

namespace automation {

using Milliseconds = DWORD;

}

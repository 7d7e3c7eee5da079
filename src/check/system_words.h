// What Windows says about an error of its own.
#pragma once

#include "check/words.h"

#include <windows.h>

namespace hublink::check {

// In the language of Windows, without the full stop, and with the number, by which it can be looked up.
Words systemWords(DWORD code);

}

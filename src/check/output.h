// Where texts go: a console takes UTF-16, a file or another program gets UTF-8.
#pragma once

#include <windows.h>

#include <string>

namespace hublink::check {

// To the program's output or its error output (STD_OUTPUT_HANDLE, STD_ERROR_HANDLE).
// Text that cannot be written is lost.
void writeOutput(DWORD stream, const std::wstring& text);

// Writes a new file, UTF-8 with its mark. One that is there already is left alone. A
// Windows error code; what a failure leaves half-written is removed.
DWORD saveAsNewFile(const std::wstring& file, const std::wstring& text);

}

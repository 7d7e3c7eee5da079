// The border to COM and to Windows, which know no exceptions: whatever they call
// does its work in here, and what is thrown becomes an answer that they know.
#pragma once

#include <windows.h>

namespace automation {

// For use while an exception is handled: its text, its code for a COM caller, and a line
// for the debugger where the caller cannot be told of a failure.
const char* textOfException() noexcept;
HRESULT codeOfException() noexcept;
void tellDebuggerOfException() noexcept;

// For an entry that answers with an HRESULT.
template <class Work>
HRESULT atBorder(Work&& work) noexcept
{
    try {
        return work();
    } catch (...) {
        return codeOfException();
    }
}

// For any other: where the work fails, the answer is `onError` and the debugger is told.
template <class Result, class Work>
Result atBorder(Result onError, Work&& work) noexcept
{
    try {
        return work();
    } catch (...) {
        tellDebuggerOfException();
        return onError;
    }
}

}

// Stops exceptions in what COM and Windows call, since neither knows them: whatever is
// thrown becomes a result that the caller understands.
#pragma once

#include <windows.h>

namespace automation {

// For use while an exception is handled: its text, its code for a COM caller, and a line
// for the debugger where the result cannot say that something failed.
const char* textOfException() noexcept;
HRESULT codeOfException() noexcept;
void reportExceptionToDebugger() noexcept;

// For an entry that answers with an HRESULT.
template <class Work>
HRESULT catchAll(Work&& work) noexcept
{
    try {
        return work();
    } catch (...) {
        return codeOfException();
    }
}

// For any other entry: where the work throws, the result is `onError` and the debugger gets a line.
template <class Result, class Work>
Result catchAll(Result onError, Work&& work) noexcept
{
    try {
        return work();
    } catch (...) {
        reportExceptionToDebugger();
        return onError;
    }
}

}

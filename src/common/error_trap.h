// The program's rule is that no error leaves a procedure: it ends quietly and
// its caller goes on with the result set so far. So a procedure declares its
// result first and does its work inside the trap.
#pragma once

#include <concepts>
#include <functional>
#include <source_location>

namespace hublink {

// Called for every trapped error: with the place of the trap, which names the procedure
// that the error has ended, and what was thrown. The default writes it to the
// debugger. What the hook itself throws is dropped. Returns the hook in force before.
using DiagnosticHook = std::function<void(const std::source_location& place, const char* error)>;
DiagnosticHook setDiagnosticHook(DiagnosticHook hook);

// Hands the exception that is being handled to the diagnostic hook.
void reportTrapped(const std::source_location& place) noexcept;

// Runs `body`; an exception ends it and is handed to the diagnostic hook.
template <std::invocable Body>
void trapErrors(Body&& body, const std::source_location& place = std::source_location::current()) noexcept
{
    try {
        body();
    } catch (...) {
        reportTrapped(place);
    }
}

// The same; after an error in `body`, `onError` runs, under a trap of its own.
template <std::invocable Body, std::invocable Handler>
void trapErrors(Body&& body, Handler&& onError,
                const std::source_location& place = std::source_location::current()) noexcept
{
    bool succeeded = false;
    const auto whole = [&] {
        body();
        succeeded = true;
    };
    trapErrors(whole, place);
    if (!succeeded) trapErrors(onError, place);
}

}

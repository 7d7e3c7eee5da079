#include "common/error_trap.h"

#include <windows.h>

#include <exception>
#include <utility>

namespace {

// In pieces: the error may be that memory is short.
void tellDebugger(const std::source_location& place, const char* error)
{
    for (const char* part : {place.function_name(), ": ", error, "\n"}) OutputDebugStringA(part);
}

// Belongs to no object: a trapped error has no other place to go, whichever
// object's procedure it ended.
DiagnosticHook& hook()
{
    static DiagnosticHook current = tellDebugger;
    return current;
}

void tellHook(const std::source_location& place)
try {
    throw;
} catch (const std::exception& error) {
    hook()(place, error.what());
} catch (...) {
    hook()(place, "an exception of an unknown kind");
}

}

void tellTrapped(const std::source_location& place) noexcept
try {
    tellHook(place);
} catch (...) { // NOLINT(bugprone-empty-catch)
    // A failing hook must not undo what the trap is for.
}

DiagnosticHook setDiagnosticHook(DiagnosticHook replacement)
{
    return std::exchange(hook(), std::move(replacement));
}

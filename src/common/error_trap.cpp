#include "common/error_trap.h"

#include "automation/catch_all.h"

#include <windows.h>

#include <utility>

namespace hublink {

namespace {

// In pieces: the error may be that memory is short.
void writeToDebugger(const std::source_location& place, const char* error)
{
    for (const char* part : {place.function_name(), ": ", error, "\n"}) OutputDebugStringA(part);
}

// Belongs to no object: a trapped error has no other place to go, whichever
// object's procedure it ended.
DiagnosticHook& hook()
{
    static DiagnosticHook current = writeToDebugger;
    return current;
}

}

void reportTrapped(const std::source_location& place) noexcept
try {
    hook()(place, automation::textOfException());
} catch (...) { // NOLINT(bugprone-empty-catch)
    // A failing hook must not undo what the trap is for.
}

DiagnosticHook setDiagnosticHook(DiagnosticHook replacement)
{
    return std::exchange(hook(), std::move(replacement));
}

}

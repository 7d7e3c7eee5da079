#include "common/error_trap.h"

#include <windows.h>

#include <exception>
#include <string>
#include <utility>

namespace {

void tellDebugger(const wchar_t* procedure, const char* error)
{
    OutputDebugStringW(procedure);
    OutputDebugStringA((std::string(": ") + error + "\n").c_str());
}

// Belongs to no object: a trapped error has no other place to go, whichever
// object's procedure it ended.
DiagnosticHook& hook()
{
    static DiagnosticHook current = tellDebugger;
    return current;
}

bool succeeds(const wchar_t* procedure, const std::function<void()>& body)
{
    try {
        body();
        return true;
    } catch (const std::exception& error) {
        hook()(procedure, error.what());
        return false;
    }
}

}

void trapErrors(const wchar_t* procedure, const std::function<void()>& body)
{
    succeeds(procedure, body);
}

void trapErrors(const wchar_t* procedure, const std::function<void()>& body, const std::function<void()>& onError)
{
    if (!succeeds(procedure, body)) succeeds(procedure, onError);
}

DiagnosticHook setDiagnosticHook(DiagnosticHook replacement)
{
    return std::exchange(hook(), std::move(replacement));
}

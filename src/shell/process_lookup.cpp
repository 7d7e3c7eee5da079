#include "shell/process_lookup.h"

#include "common/running_processes.h"

#include <algorithm>
#include <utility>

namespace hublink {

namespace {

using automation::Handle;

// A handle keeps its process's identifier from being given to another
// process, but not the process from having ended.
bool isRunning(const Handle& process)
{
    return WaitForSingleObject(process.get(), 0) == WAIT_TIMEOUT;
}

// None for a process that has ended meanwhile.
Handle openIfRunning(DWORD processId)
{
    Handle process(OpenProcess(SYNCHRONIZE, FALSE, processId));
    if (!process && GetLastError() == ERROR_ACCESS_DENIED) return Handle(GetCurrentProcess());
    if (process && !isRunning(process)) process.reset();
    return process;
}

}

bool ProcessLookup::GetProcessHandle(const wchar_t* fileName, HANDLE& handle, DWORD& processId)
{
    Known& known = known_[fileName];
    if (known.handle) {
        if (!stillRuns(fileName, known)) known.handle.reset();
    } else {
        known = firstRunning(fileName);
    }
    if (!known.handle) return false;
    handle = known.handle.get();
    processId = known.processId;
    return true;
}

// The usual tick needs no list of processes: the one found last still runs.
bool ProcessLookup::stillRuns(const wchar_t* fileName, const Known& known)
{
    if (known.handle.get() != GetCurrentProcess()) return isRunning(known.handle);
    const auto running = processesNamed(fileName);
    // A system short of resources says nothing about a process that cannot be opened.
    return !running || std::find(running->begin(), running->end(), known.processId) != running->end();
}

ProcessLookup::Known ProcessLookup::firstRunning(const wchar_t* fileName)
{
    const auto running = processesNamed(fileName);
    if (!running) return {};
    for (const DWORD candidate : *running)
        if (Handle process = openIfRunning(candidate)) return {std::move(process), candidate};
    return {};
}

}

#include "common/process_lookup.h"

#include "automation/text.h"

#include <tlhelp32.h>

#include <algorithm>
#include <optional>
#include <vector>

namespace {

// On a terminal server the same program runs for other users too.
bool inThisSession(DWORD processId)
{
    DWORD own = 0;
    DWORD others = 0;
    return !ProcessIdToSessionId(GetCurrentProcessId(), &own) || !ProcessIdToSessionId(processId, &others) ||
           own == others;
}

// Empty when the system cannot list its processes.
std::optional<std::vector<DWORD>> processesNamed(const wchar_t* fileName)
{
    std::vector<DWORD> found;
    const HANDLE snapshot = CreateToolhelp32Snapshot(TH32CS_SNAPPROCESS, 0);
    if (snapshot == INVALID_HANDLE_VALUE) return std::nullopt;
    PROCESSENTRY32W entry{};
    entry.dwSize = sizeof entry;
    if (!Process32FirstW(snapshot, &entry)) {
        CloseHandle(snapshot);
        return std::nullopt;
    }
    for (BOOL more = TRUE; more; more = Process32NextW(snapshot, &entry))
        if (automation::equalWithoutCase(entry.szExeFile, fileName) && inThisSession(entry.th32ProcessID))
            found.push_back(entry.th32ProcessID);
    CloseHandle(snapshot);
    return found;
}

// A handle keeps its process's identifier from being given to another
// process, but not the process from having ended.
bool isRunning(HANDLE process)
{
    return WaitForSingleObject(process, 0) == WAIT_TIMEOUT;
}

void close(HANDLE& handle)
{
    if (handle && handle != GetCurrentProcess()) CloseHandle(handle);
    handle = nullptr;
}

// A null handle for a process that has ended meanwhile.
HANDLE opened(DWORD processId)
{
    HANDLE handle = OpenProcess(SYNCHRONIZE, FALSE, processId);
    if (!handle && GetLastError() == ERROR_ACCESS_DENIED) return GetCurrentProcess();
    if (handle && !isRunning(handle)) close(handle);
    return handle;
}

}

ProcessLookup::~ProcessLookup()
{
    for (auto& [name, process] : known_) close(process.handle);
}

bool ProcessLookup::GetProcessHandle(const wchar_t* fileName, HANDLE& handle, DWORD& processId)
{
    Known& known = known_[fileName];
    if (known.handle) {
        if (!stillRuns(fileName, known)) close(known.handle);
    } else {
        known = firstRunning(fileName);
    }
    if (!known.handle) return false;
    handle = known.handle;
    processId = known.processId;
    return true;
}

// The usual tick needs no list of processes: the one found last still runs.
bool ProcessLookup::stillRuns(const wchar_t* fileName, const Known& known)
{
    if (known.handle != GetCurrentProcess()) return isRunning(known.handle);
    const auto running = processesNamed(fileName);
    // A system short of resources says nothing about a process that cannot be opened.
    return !running || std::find(running->begin(), running->end(), known.processId) != running->end();
}

ProcessLookup::Known ProcessLookup::firstRunning(const wchar_t* fileName)
{
    const auto running = processesNamed(fileName);
    if (!running) return {};
    for (const DWORD candidate : *running)
        if (const HANDLE handle = opened(candidate)) return {handle, candidate};
    return {};
}

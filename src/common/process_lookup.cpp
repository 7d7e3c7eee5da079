#include "common/process_lookup.h"

#include "automation/text.h"

#include <tlhelp32.h>

#include <algorithm>
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

std::vector<DWORD> processesNamed(const wchar_t* fileName)
{
    std::vector<DWORD> found;
    const HANDLE snapshot = CreateToolhelp32Snapshot(TH32CS_SNAPPROCESS, 0);
    if (snapshot == INVALID_HANDLE_VALUE) return found;
    PROCESSENTRY32W entry{};
    entry.dwSize = sizeof entry;
    for (BOOL more = Process32FirstW(snapshot, &entry); more; more = Process32NextW(snapshot, &entry))
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

HANDLE opened(DWORD processId)
{
    const HANDLE handle = OpenProcess(SYNCHRONIZE, FALSE, processId);
    return handle ? handle : GetCurrentProcess();
}

void close(HANDLE& handle)
{
    if (handle && handle != GetCurrentProcess()) CloseHandle(handle);
    handle = nullptr;
}

}

ProcessLookup::~ProcessLookup()
{
    for (auto& [name, process] : known_) close(process.handle);
}

bool ProcessLookup::GetProcessHandle(const wchar_t* fileName, HANDLE& handle, DWORD& processId)
{
    Known& known = known_[fileName];
    const std::vector<DWORD> running = processesNamed(fileName);
    const bool same = known.handle && std::find(running.begin(), running.end(), known.processId) != running.end() &&
                      (known.handle == GetCurrentProcess() || isRunning(known.handle));
    if (!same) {
        close(known.handle);
        if (running.empty()) return false;
        known = {opened(running.front()), running.front()};
    }
    handle = known.handle;
    processId = known.processId;
    return true;
}

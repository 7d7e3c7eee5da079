#include "common/running_processes.h"

#include "automation/owners.h"
#include "automation/text.h"

#include <tlhelp32.h>

namespace hublink {

namespace {

// On a terminal server the same program runs for other users too.
bool inThisSession(DWORD processId)
{
    DWORD own = 0;
    DWORD others = 0;
    return !ProcessIdToSessionId(GetCurrentProcessId(), &own) || !ProcessIdToSessionId(processId, &others) ||
           own == others;
}

}

std::optional<std::vector<DWORD>> processesNamed(const wchar_t* fileName)
{
    auto found = processesOfAllSessions(fileName);
    if (found) std::erase_if(*found, [](DWORD id) { return !inThisSession(id); });
    return found;
}

std::optional<std::vector<DWORD>> processesOfAllSessions(const wchar_t* fileName)
{
    std::vector<DWORD> found;
    const automation::Handle snapshot = automation::ownedIfValid(CreateToolhelp32Snapshot(TH32CS_SNAPPROCESS, 0));
    PROCESSENTRY32W entry{};
    entry.dwSize = sizeof entry;
    if (!snapshot || !Process32FirstW(snapshot.get(), &entry)) return std::nullopt;
    for (BOOL more = TRUE; more; more = Process32NextW(snapshot.get(), &entry))
        if (automation::equalIgnoringCase(entry.szExeFile, fileName)) found.push_back(entry.th32ProcessID);
    return found;
}

}

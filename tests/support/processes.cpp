#include "support/processes.h"

#include "automation/owners.h"
#include "automation/text.h"

#include <tlhelp32.h>

namespace support {

namespace {

void endProcesses(const std::vector<DWORD>& ids)
{
    for (const DWORD id : ids) {
        const automation::Handle process(OpenProcess(PROCESS_TERMINATE | SYNCHRONIZE, FALSE, id));
        if (!process) continue;
        TerminateProcess(process.get(), 9);
        WaitForSingleObject(process.get(), 5'000);
    }
}

}

std::vector<DWORD> processesNamed(const wchar_t* name)
{
    std::vector<DWORD> ids;
    const auto snapshot = automation::ownedIfValid(CreateToolhelp32Snapshot(TH32CS_SNAPPROCESS, 0));
    PROCESSENTRY32W entry{};
    entry.dwSize = sizeof entry;
    for (BOOL more = Process32FirstW(snapshot.get(), &entry); more; more = Process32NextW(snapshot.get(), &entry))
        if (automation::equalIgnoringCase(entry.szExeFile, name)) ids.push_back(entry.th32ProcessID);
    return ids;
}

void killMapServers()
{
    const auto running = processesNamed(L"PavexConvId.exe");
    if (running.empty()) return;
    endProcesses(running);
    forgetDeadServers();
}

// Wine goes on sending clients to the dead process until its service ends.
void forgetDeadServers()
{
    if (isWine()) endProcesses(processesNamed(L"rpcss.exe"));
}

bool isWine()
{
    return GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "wine_get_version") != nullptr;
}

}

#include "setup/running_programs.h"

#include "automation/owners.h"
#include "automation/text.h"
#include "common/connector_settings.h"
#include "common/files.h"
#include "common/installation.h"
#include "setup/softphone_place.h"

#include <tlhelp32.h>
#include <userenv.h>
#include <wtsapi32.h>

#include <algorithm>

namespace hublink::setup {

namespace {

// Milliseconds. A request is seen at the next of Hublink's five-second ticks, and
// obeyed at the one after it; a partner may have to be waited for before.
constexpr DWORD patienceForHublink = 60'000;
constexpr DWORD patienceForMapServer = 10'000;
constexpr DWORD pause = 200;

std::vector<DWORD> processesNamed(const wchar_t* name)
{
    std::vector<DWORD> found;
    const automation::Handle snapshot = automation::orNone(CreateToolhelp32Snapshot(TH32CS_SNAPPROCESS, 0));
    PROCESSENTRY32W entry;
    entry.dwSize = sizeof entry;
    for (BOOL more = snapshot && Process32FirstW(snapshot.get(), &entry); more;
         more = Process32NextW(snapshot.get(), &entry))
        if (automation::equalWithoutCase(entry.szExeFile, name)) found.push_back(entry.th32ProcessID);
    return found;
}

template <class Ask>
bool ends(const wchar_t* name, DWORD patience, Ask&& ask)
{
    const DWORD begun = GetTickCount();
    while (!processesNamed(name).empty()) {
        if (GetTickCount() - begun > patience) return false;
        ask();
        Sleep(pause);
    }
    return true;
}

PROCESS_INFORMATION startedAs(HANDLE user, const std::wstring& program)
{
    std::wstring command = L"\"" + program + L"\"";
    const std::wstring folder = program.substr(0, program.rfind(L'\\'));
    wchar_t desktop[] = L"winsta0\\default";
    STARTUPINFOW start{};
    start.cb = sizeof start;
    start.lpDesktop = desktop;
    void* environment = nullptr;
    const DWORD flags = CreateEnvironmentBlock(&environment, user, FALSE) ? CREATE_UNICODE_ENVIRONMENT : 0;
    PROCESS_INFORMATION process{};
    if (!CreateProcessAsUserW(user, program.c_str(), command.data(), nullptr, nullptr, FALSE, flags, environment,
                              folder.c_str(), &start, &process))
        process = {};
    if (environment) DestroyEnvironmentBlock(environment);
    return process;
}

}

std::vector<DWORD> sessionsOfHublink()
{
    std::vector<DWORD> sessions;
    for (const DWORD process : processesNamed(L"hublink.exe")) {
        DWORD session = 0;
        const bool isNew = ProcessIdToSessionId(process, &session) &&
                           std::find(sessions.begin(), sessions.end(), session) == sessions.end();
        if (isNew) sessions.push_back(session);
    }
    return sessions;
}

bool stopHublink()
{
    const std::wstring file = connectorFolderHere() + L"\\" + iniFileName;
    const bool asks = FileExist(file); // writing would make one
    const IniFile ini(file);
    const bool ended = ends(L"hublink.exe", patienceForHublink, [&] {
        // The first one that reads the request takes it back, and others may run in other sessions.
        if (asks && !asksForStop(ini)) askForStop(ini);
    });
    if (asks) takeStopRequestBack(ini);
    return ended && ends(L"PavexConvId.exe", patienceForMapServer, [] {});
}

bool startHublinkIn(DWORD session, const std::wstring& program)
{
    HANDLE opened = nullptr;
    if (!WTSQueryUserToken(session, &opened)) return false;
    const automation::Handle user(opened);
    const PROCESS_INFORMATION process = startedAs(user.get(), program);
    const automation::Handle thread(process.hThread);
    const automation::Handle owned(process.hProcess);
    return process.hProcess != nullptr;
}

}

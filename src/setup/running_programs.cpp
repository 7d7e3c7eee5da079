#include "setup/running_programs.h"

#include "automation/owners.h"
#include "automation/server/end_request.h"
#include "common/connector_settings.h"
#include "common/files.h"
#include "common/installation.h"
#include "common/program_files.h"
#include "common/running_processes.h"
#include "setup/softphone_place.h"

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

std::vector<DWORD> allNamed(const wchar_t* name)
{
    return processesOfAllSessions(name).value_or(std::vector<DWORD>());
}

template <class Ask>
bool ends(const wchar_t* name, DWORD patience, Ask&& ask)
{
    const DWORD begun = GetTickCount();
    while (!allNamed(name).empty()) {
        if (GetTickCount() - begun > patience) return false;
        ask();
        Sleep(pause);
    }
    return true;
}

// Windows Installer's service carries the actions out; elsewhere they run as whoever installs.
bool isSystem()
{
    HANDLE opened = nullptr;
    if (!OpenProcessToken(GetCurrentProcess(), TOKEN_QUERY, &opened)) return false;
    const automation::Handle token(opened);
    BYTE user[sizeof(TOKEN_USER) + SECURITY_MAX_SID_SIZE];
    DWORD size = sizeof user;
    return GetTokenInformation(token.get(), TokenUser, user, size, &size) &&
           IsWellKnownSid(reinterpret_cast<const TOKEN_USER*>(user)->User.Sid, WinLocalSystemSid);
}

struct Start {
    std::wstring command;
    std::wstring folder;
    STARTUPINFOW how{};
    PROCESS_INFORMATION process{};

    explicit Start(const std::wstring& program)
        : command(L"\"" + program + L"\""), folder(program.substr(0, program.rfind(L'\\')))
    {
        how.cb = sizeof how;
    }

    ~Start()
    {
        const automation::Handle thread(process.hThread);
        const automation::Handle owned(process.hProcess);
    }

    Start(const Start&) = delete;
    Start& operator=(const Start&) = delete;
};

bool startAs(HANDLE user, const std::wstring& program)
{
    Start start(program);
    wchar_t desktop[] = L"winsta0\\default";
    start.how.lpDesktop = desktop;
    void* environment = nullptr;
    const DWORD flags = CreateEnvironmentBlock(&environment, user, FALSE) ? CREATE_UNICODE_ENVIRONMENT : 0;
    const bool started = CreateProcessAsUserW(user, program.c_str(), start.command.data(), nullptr, nullptr, FALSE,
                                              flags, environment, start.folder.c_str(), &start.how, &start.process);
    if (environment) DestroyEnvironmentBlock(environment);
    return started;
}

bool startHere(const std::wstring& program)
{
    Start start(program);
    return CreateProcessW(program.c_str(), start.command.data(), nullptr, nullptr, FALSE, 0, nullptr,
                          start.folder.c_str(), &start.how, &start.process);
}

bool isOwn(DWORD session)
{
    DWORD own = 0;
    return ProcessIdToSessionId(GetCurrentProcessId(), &own) && own == session;
}

}

std::vector<DWORD> sessionsOfHublink()
{
    std::vector<DWORD> sessions;
    for (const DWORD process : allNamed(hublinkProgram)) {
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
    const bool ended = ends(hublinkProgram, patienceForHublink, [&] {
        // The first one that reads the request takes it back, and others may run in other sessions.
        if (asks && !asksForStop(ini)) askForStop(ini);
    });
    if (asks) takeStopRequestBack(ini);
    return ended;
}

bool endMapServers()
{
    if (!allNamed(hublinkProgram).empty()) return false;
    return ends(mapServerProgram, patienceForMapServer, [] {
        for (const DWORD process : allNamed(mapServerProgram)) automation::server::askToEnd(process);
    });
}

bool startHublinkIn(DWORD session, const std::wstring& program)
{
    if (!isSystem()) return isOwn(session) && startHere(program);
    HANDLE opened = nullptr;
    if (!WTSQueryUserToken(session, &opened)) return false;
    const automation::Handle user(opened);
    return startAs(user.get(), program);
}

}

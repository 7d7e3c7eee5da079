#include "setup/running_programs.h"

#include "automation/milliseconds.h"
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

// A request is seen at the next of Hublink's five-second ticks, and
// obeyed at the one after it; a partner may have to be waited for before.
constexpr automation::Milliseconds hublinkTimeout = 60'000;
constexpr automation::Milliseconds mapServerTimeout = 10'000;
constexpr automation::Milliseconds pollInterval = 200;

std::vector<DWORD> processIdsOf(const wchar_t* name)
{
    return processesOfAllSessions(name).value_or(std::vector<DWORD>());
}

template <class Ask>
bool waitUntilEnded(const wchar_t* name, automation::Milliseconds timeout, Ask&& sendRequest)
{
    const DWORD startTick = GetTickCount();
    while (!processIdsOf(name).empty()) {
        if (GetTickCount() - startTick > timeout) return false;
        sendRequest();
        Sleep(pollInterval);
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

struct ProcessStart {
    std::wstring command;
    std::wstring folder;
    STARTUPINFOW startup{};
    PROCESS_INFORMATION process{};

    explicit ProcessStart(const std::wstring& program)
        : command(L"\"" + program + L"\""), folder(program.substr(0, program.rfind(L'\\')))
    {
        startup.cb = sizeof startup;
    }

    ~ProcessStart()
    {
        const automation::Handle thread(process.hThread);
        const automation::Handle owned(process.hProcess);
    }

    ProcessStart(const ProcessStart&) = delete;
    ProcessStart& operator=(const ProcessStart&) = delete;
};

bool startAs(HANDLE user, const std::wstring& program)
{
    ProcessStart start(program);
    wchar_t desktop[] = L"winsta0\\default";
    start.startup.lpDesktop = desktop;
    void* environment = nullptr;
    const DWORD flags = CreateEnvironmentBlock(&environment, user, FALSE) ? CREATE_UNICODE_ENVIRONMENT : 0;
    const bool started = CreateProcessAsUserW(user, program.c_str(), start.command.data(), nullptr, nullptr, FALSE,
                                              flags, environment, start.folder.c_str(), &start.startup, &start.process);
    if (environment) DestroyEnvironmentBlock(environment);
    return started;
}

bool startHere(const std::wstring& program)
{
    ProcessStart start(program);
    return CreateProcessW(program.c_str(), start.command.data(), nullptr, nullptr, FALSE, 0, nullptr,
                          start.folder.c_str(), &start.startup, &start.process);
}

bool isOwnSession(DWORD session)
{
    DWORD own = 0;
    return ProcessIdToSessionId(GetCurrentProcessId(), &own) && own == session;
}

}

bool isHublinkRunning()
{
    return !processIdsOf(hublinkProgram).empty();
}

std::vector<DWORD> sessionsOfHublink()
{
    std::vector<DWORD> sessions;
    for (const DWORD process : processIdsOf(hublinkProgram)) {
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
    const bool hasIniFile = FileExist(file); // writing would make one
    const IniFile ini(file);
    const bool ended = waitUntilEnded(hublinkProgram, hublinkTimeout, [&] {
        // The first one that reads the request takes it back, and others may run in other sessions.
        if (hasIniFile && !isStopRequested(ini)) requestStop(ini);
    });
    if (hasIniFile) clearStopRequest(ini);
    return ended;
}

bool endMapServers()
{
    if (isHublinkRunning()) return false;
    return waitUntilEnded(mapServerProgram, mapServerTimeout, [] {
        for (const DWORD process : processIdsOf(mapServerProgram)) automation::server::requestEnd(process);
    });
}

bool startHublinkIn(DWORD session, const std::wstring& program)
{
    if (!isSystem()) return isOwnSession(session) && startHere(program);
    HANDLE opened = nullptr;
    if (!WTSQueryUserToken(session, &opened)) return false;
    const automation::Handle user(opened);
    return startAs(user.get(), program);
}

}

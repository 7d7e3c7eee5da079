#include "server_session.h"

#include "automation/text.h"
#include "convid/store_place.h"

#include <tlhelp32.h>

namespace convid_tests {

using automation::byRef;
using automation::Value;

namespace {

void endProcesses(const std::vector<DWORD>& ids)
{
    for (const DWORD id : ids) {
        const HANDLE process = OpenProcess(PROCESS_TERMINATE | SYNCHRONIZE, FALSE, id);
        if (!process) continue;
        TerminateProcess(process, 9);
        WaitForSingleObject(process, 5'000);
        CloseHandle(process);
    }
}

bool isWine()
{
    return GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "wine_get_version") != nullptr;
}

}

std::wstring serverProgram()
{
    return besideThisProgram(L"PavexConvId.exe");
}

std::vector<DWORD> processesNamed(const wchar_t* name)
{
    std::vector<DWORD> ids;
    const HANDLE snapshot = CreateToolhelp32Snapshot(TH32CS_SNAPPROCESS, 0);
    PROCESSENTRY32W entry{};
    entry.dwSize = sizeof entry;
    for (BOOL more = Process32FirstW(snapshot, &entry); more; more = Process32NextW(snapshot, &entry))
        if (automation::equalWithoutCase(entry.szExeFile, name)) ids.push_back(entry.th32ProcessID);
    CloseHandle(snapshot);
    return ids;
}

DWORD runServer(const std::wstring& arguments)
{
    return Process(L"\"" + serverProgram() + L"\" " + arguments).exitCode();
}

void killServers()
{
    const auto running = servers();
    if (running.empty()) return;
    endProcesses(running);
    // Wine goes on sending clients to the dead process until its service ends.
    if (isWine()) endProcesses(processesNamed(L"rpcss.exe"));
}

void ServerSession::SetUp()
{
    if (!isWine()) GTEST_SKIP() << "would use up the signed-in user's own identifier map";
    killServers();
    store = convid::storePath();
    DeleteFileW(store.c_str());
    ASSERT_EQ(runServer(L"/RegServer"), 0u);
}

void ServerSession::TearDown()
{
    if (store.empty()) return; // the test was skipped
    killServers();
    DeleteFileW(store.c_str());
    EXPECT_EQ(runServer(L"/UnregServer"), 0u);
}

std::wstring converted(const automation::Object& map, const wchar_t* idOrvel, std::int32_t typApplication)
{
    Value text(std::wstring(1024, L'\0'));
    Value length(std::int32_t{1024});
    const Value result = map.get(L"ConvertIdOrvel", {idOrvel, byRef(text), byRef(length), typApplication});
    return result.int32() == 0 ? L"" : text.text().substr(0, static_cast<std::size_t>(length.int32()));
}

}

#include "desk_softphone/running_softphone.h"

#include "automation/server/registration.h"
#include "desk/common/control_pipe.h"
#include "desk/common/store_file.h"

#include <objbase.h>

#include <stdexcept>
#include <vector>

namespace testing_desk {

namespace {

constexpr DWORD stillRuns = 0xFFFFFFFF;

std::wstring registeredServer()
{
    CLSID classId;
    wchar_t text[64];
    std::wstring server(MAX_PATH, L'\0');
    LONG size = MAX_PATH * sizeof(wchar_t);
    if (FAILED(CLSIDFromProgID(L"Pavex.Application", &classId)) || !StringFromGUID2(classId, text, 64)) return L"";
    const std::wstring key = std::wstring(L"CLSID\\") + text + L"\\LocalServer32";
    if (RegQueryValueW(HKEY_CLASSES_ROOT, key.c_str(), server.data(), &size) != ERROR_SUCCESS) return L"";
    return server.c_str();
}

}

Process::Process(const std::wstring& commandLine)
{
    std::vector<wchar_t> line(commandLine.begin(), commandLine.end());
    line.push_back(L'\0');
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION information{};
    if (!CreateProcessW(nullptr, line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup, &information))
        throw std::runtime_error("a process cannot be started");
    CloseHandle(information.hThread);
    process_ = information.hProcess;
}

Process::~Process()
{
    CloseHandle(process_);
}

DWORD Process::exitCode(DWORD milliseconds) const
{
    DWORD code = stillRuns;
    if (waitFor([this] { return WaitForSingleObject(process_, 0) == WAIT_OBJECT_0; }, milliseconds))
        GetExitCodeProcess(process_, &code);
    return code;
}

void Process::kill() const
{
    TerminateProcess(process_, 1);
    WaitForSingleObject(process_, INFINITE);
}

RunningSoftphone::RunningSoftphone()
{
    oneAtATime_ = CreateMutexW(nullptr, FALSE, L"desk-softphone-test");
    WaitForSingleObject(oneAtATime_, INFINITE);
    wchar_t temporary[MAX_PATH];
    GetTempPathW(MAX_PATH, temporary);
    folder_ = std::wstring(temporary) + L"softphone-test-" + std::to_wstring(GetCurrentProcessId());
    CreateDirectoryW(folder_.c_str(), nullptr);
    registeredBefore_ = registeredServer();
    if (!CopyFileW((testFolder() + L"\\pavex.exe").c_str(), programPath().c_str(), FALSE))
        throw std::runtime_error("pavex.exe is not beside the test");
    if (Process(L"\"" + programPath() + L"\" /RegServer").exitCode() != 0)
        throw std::runtime_error("pavex.exe cannot be registered");
    start();
}

void RunningSoftphone::start()
{
    process_ = std::make_unique<Process>(L"\"" + programPath() + L"\" -Embedding");
    desk::ask(L"pavex", L"ping");
}

RunningSoftphone::~RunningSoftphone()
{
    if (alive()) {
        desk::ask(L"pavex", L"exit");
        process_->exitCode();
    }
    Process(L"\"" + programPath() + L"\" /UnregServer").exitCode();
    if (!registeredBefore_.empty()) Process(registeredBefore_ + L" /RegServer").exitCode();
    for (const wchar_t* file : {L"\\pavex.exe", L"\\pavex.store.txt"}) DeleteFileW((folder_ + file).c_str());
    RemoveDirectoryW(folder_.c_str());
    ReleaseMutex(oneAtATime_);
    CloseHandle(oneAtATime_);
}

bool RunningSoftphone::alive() const
{
    if (process_->exitCode(0) != stillRuns) return false;
    return desk::ask(L"pavex", L"ping", 3'000).starts_with(L"pavex ");
}

std::wstring RunningSoftphone::storeText() const
{
    return desk::storeText(desk::readStore(folder_ + L"\\pavex.store.txt"));
}

bool waitFor(const std::function<bool()>& done, DWORD milliseconds)
{
    const DWORD start = GetTickCount();
    for (;;) {
        MSG message;
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) DispatchMessageW(&message);
        if (done()) return true;
        if (GetTickCount() - start >= milliseconds) return false;
        MsgWaitForMultipleObjects(0, nullptr, FALSE, 10, QS_ALLINPUT);
    }
}

std::wstring testFolder()
{
    const std::wstring path = automation::server::programPath();
    return path.substr(0, path.rfind(L'\\'));
}

}

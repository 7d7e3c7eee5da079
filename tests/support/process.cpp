#include "support/process.h"

#include "automation/error.h"
#include "automation/server/registration.h"

namespace support {

namespace {

void dispatchMessages()
{
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) DispatchMessageW(&message);
}

automation::Handle outputOf(const std::wstring& file)
{
    SECURITY_ATTRIBUTES inherited{sizeof inherited, nullptr, TRUE};
    return automation::ownedIfValid(
        CreateFileW(file.c_str(), GENERIC_WRITE, FILE_SHARE_READ, &inherited, CREATE_ALWAYS, 0, nullptr));
}

}

Process::Process(std::wstring commandLine, const std::wstring& outputFile, const wchar_t* folder)
{
    STARTUPINFOW start{};
    start.cb = sizeof start;
    automation::Handle output;
    if (!outputFile.empty()) {
        output = outputOf(outputFile);
        start.dwFlags = STARTF_USESTDHANDLES;
        start.hStdOutput = output.get();
        start.hStdError = output.get();
    }
    PROCESS_INFORMATION process{};
    if (!CreateProcessW(nullptr, commandLine.data(), nullptr, nullptr, output != nullptr, 0, nullptr, folder, &start,
                        &process))
        throw automation::AutomationError(commandLine, HRESULT_FROM_WIN32(GetLastError()));
    CloseHandle(process.hThread);
    handle_.reset(process.hProcess);
    id_ = process.dwProcessId;
}

Process::~Process()
{
    if (exitCode(0) == stillRuns) kill();
}

DWORD Process::exitCode(DWORD milliseconds) const
{
    const HANDLE process = handle_.get();
    const DWORD start = GetTickCount();
    DWORD passed = 0;
    while (passed < milliseconds &&
           MsgWaitForMultipleObjects(1, &process, FALSE, milliseconds - passed, QS_ALLINPUT) != WAIT_OBJECT_0) {
        dispatchMessages();
        passed = GetTickCount() - start;
    }
    DWORD code = stillRuns;
    GetExitCodeProcess(process, &code);
    return code;
}

void Process::kill() const
{
    TerminateProcess(handle_.get(), 9);
    WaitForSingleObject(handle_.get(), INFINITE);
}

std::wstring pathBesideTests(const std::wstring& name)
{
    const std::wstring program = automation::server::programPath();
    return program.substr(0, program.rfind(L'\\') + 1) + name;
}

std::wstring command(const std::wstring& name)
{
    return L"\"" + pathBesideTests(name) + L"\"";
}

bool eventually(const std::function<bool()>& condition, DWORD milliseconds)
{
    for (const DWORD start = GetTickCount(); GetTickCount() - start < milliseconds;) {
        dispatchMessages();
        if (condition()) return true;
        MsgWaitForMultipleObjects(0, nullptr, FALSE, 10, QS_ALLINPUT);
    }
    return condition();
}

}

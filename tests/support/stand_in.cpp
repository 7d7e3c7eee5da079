#include "support/stand_in.h"

#include "automation/error.h"
#include "automation/server/registration.h"

namespace support {

namespace {

DWORD processInFront()
{
    DWORD processId = 0;
    GetWindowThreadProcessId(GetForegroundWindow(), &processId);
    return processId;
}

}

std::wstring testProgramFolder()
{
    const std::wstring program = automation::server::programPath();
    return program.substr(0, program.rfind(L'\\'));
}

StandIn::StandIn(const ScratchFolder& folder, const std::wstring& fileName, Window window)
{
    const std::wstring program = folder.file(fileName);
    CopyFileW((testProgramFolder() + L"\\idle_program.exe").c_str(), program.c_str(), FALSE);
    std::wstring line = L"\"" + program + (window == Window::inFront ? L"\" window" : L"\"");
    STARTUPINFOW start{};
    start.cb = sizeof start;
    PROCESS_INFORMATION process{};
    if (!CreateProcessW(program.c_str(), line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &start, &process))
        throw automation::AutomationError(fileName, HRESULT_FROM_WIN32(GetLastError()));
    CloseHandle(process.hThread);
    process_ = process.hProcess;
    processId_ = process.dwProcessId;
    if (window == Window::none) return;
    for (int wait = 0; processInFront() != processId_; ++wait) {
        if (wait == 500) throw automation::AutomationError(L"SetForegroundWindow", E_FAIL);
        Sleep(20);
    }
}

void StandIn::end()
{
    if (!process_) return;
    TerminateProcess(process_, 0);
    WaitForSingleObject(process_, INFINITE);
    CloseHandle(process_);
    process_ = nullptr;
}

}

#include "support/stand_in.h"

#include "automation/error.h"
#include "automation/server/registration.h"

namespace support {

namespace {

DWORD processOf(HWND window)
{
    DWORD processId = 0;
    GetWindowThreadProcessId(window, &processId);
    return processId;
}

std::wstring arguments(StandIn::Window window, HWND frame)
{
    const std::wstring number = L" " + std::to_wstring(reinterpret_cast<UINT_PTR>(frame));
    switch (window) {
    case StandIn::Window::inFront: return L" window";
    case StandIn::Window::inFrame: return L" child" + number;
    case StandIn::Window::hiddenInFrame: return L" hidden" + number;
    case StandIn::Window::none: break;
    }
    return L"";
}

}

std::wstring testProgramFolder()
{
    const std::wstring program = automation::server::programPath();
    return program.substr(0, program.rfind(L'\\'));
}

bool StandIn::isThere(Window window, HWND frame) const
{
    if (window == Window::none) return true;
    if (window == Window::inFront) return processOf(GetForegroundWindow()) == processId_;
    for (HWND child = GetWindow(frame, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT))
        if (processOf(child) == processId_) return true;
    return false;
}

StandIn::StandIn(const ScratchFolder& folder, const std::wstring& fileName, Window window, HWND frame)
{
    const std::wstring program = folder.file(fileName);
    CopyFileW((testProgramFolder() + L"\\idle_program.exe").c_str(), program.c_str(), FALSE);
    std::wstring line = L"\"" + program + L"\"" + arguments(window, frame);
    STARTUPINFOW start{};
    start.cb = sizeof start;
    PROCESS_INFORMATION process{};
    if (!CreateProcessW(program.c_str(), line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &start, &process))
        throw automation::AutomationError(fileName, HRESULT_FROM_WIN32(GetLastError()));
    CloseHandle(process.hThread);
    process_ = process.hProcess;
    processId_ = process.dwProcessId;
    for (int wait = 0; !isThere(window, frame); ++wait) {
        if (wait == 500) throw automation::AutomationError(L"the window of " + fileName, E_FAIL);
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

#include "support/dummy_program.h"

#include "automation/error.h"

namespace support {

namespace {

DWORD processOf(HWND window)
{
    DWORD processId = 0;
    GetWindowThreadProcessId(window, &processId);
    return processId;
}

std::wstring arguments(DummyProgram::Window window, HWND frame)
{
    const std::wstring number = L" " + std::to_wstring(reinterpret_cast<UINT_PTR>(frame));
    switch (window) {
    case DummyProgram::Window::inFront: return L" window";
    case DummyProgram::Window::inFrame: return L" child" + number;
    case DummyProgram::Window::hiddenInFrame: return L" hidden" + number;
    case DummyProgram::Window::none: break;
    }
    return L"";
}

}

bool DummyProgram::isThere(Window window, HWND frame) const
{
    if (window == Window::none) return true;
    if (window == Window::inFront) return processOf(GetForegroundWindow()) == processId_;
    for (HWND child = GetWindow(frame, GW_CHILD); child; child = GetWindow(child, GW_HWNDNEXT))
        if (processOf(child) == processId_) return true;
    return false;
}

DummyProgram::DummyProgram(const ScratchFolder& folder, const std::wstring& fileName, Window window, HWND frame)
{
    const std::wstring program = folder.file(fileName);
    CopyFileW(pathBesideTests(L"idle_program.exe").c_str(), program.c_str(), FALSE);
    process_.emplace(L"\"" + program + L"\"" + arguments(window, frame));
    processId_ = process_->id();
    for (int wait = 0; !isThere(window, frame); ++wait) {
        if (wait == 500) throw automation::AutomationError(L"the window of " + fileName, E_FAIL);
        Sleep(20);
    }
}

}

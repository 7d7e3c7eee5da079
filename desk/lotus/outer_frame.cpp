#include "desk/lotus/outer_frame.h"

#include "automation/owners.h"
#include "automation/server/registration.h"

#include <stdexcept>
#include <string>

namespace desk::lotus {

namespace {

constexpr DWORD timeout = 15'000; // milliseconds
constexpr DWORD pollInterval = 20;

// The program's process identifier.
DWORD startFrame()
{
    const std::wstring own = automation::server::programPath();
    const std::wstring program = own.substr(0, own.rfind(L'\\') + 1) + L"notes2.exe";
    std::wstring line = L"\"" + program + L"\" " + std::to_wstring(GetCurrentProcessId());
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    PROCESS_INFORMATION process{};
    if (!CreateProcessW(program.c_str(), line.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &startup, &process))
        throw std::runtime_error("notes2.exe cannot be started");
    const automation::Handle thread(process.hThread);
    const automation::Handle frame(process.hProcess);
    return process.dwProcessId;
}

HWND frameOf(DWORD processId)
{
    HWND window = nullptr;
    while ((window = FindWindowExW(nullptr, window, OuterFrame::className, nullptr)) != nullptr) {
        DWORD owner = 0;
        GetWindowThreadProcessId(window, &owner);
        if (owner == processId) return window;
    }
    return nullptr;
}

}

OuterFrame::OuterFrame()
{
    const DWORD processId = startFrame();
    for (DWORD waited = 0; !window_ && waited < timeout; waited += pollInterval) {
        Sleep(pollInterval);
        window_ = frameOf(processId);
    }
    if (!window_) throw std::runtime_error("notes2.exe shows no window");
}

void OuterFrame::take(HWND window) const
{
    RECT place;
    GetWindowRect(window, &place);
    SetWindowLongW(window, GWL_STYLE, GetWindowLongW(window, GWL_STYLE) | WS_CHILD);
    SetParent(window, window_);
    POINT corner{place.left, place.top};
    ScreenToClient(window_, &corner);
    SetWindowPos(window, HWND_TOP, corner.x, corner.y, 0, 0, SWP_NOSIZE | SWP_NOACTIVATE | SWP_FRAMECHANGED);
}

}

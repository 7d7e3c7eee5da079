// notes2.exe: the frame window of the simulated Notes, and nothing else. The
// windows in it are those of nlnotes.exe, whose process identifier is its
// argument and with which it ends.
#include "automation/owners.h"
#include "desk/lotus/outer_frame.h"

#include <cwchar>

namespace {

constexpr int left = 860;
constexpr int top = 0;
constexpr int width = 740;
constexpr int height = 760;

void showFrame()
{
    WNDCLASSW frame{};
    frame.lpfnWndProc = DefWindowProcW;
    frame.hInstance = GetModuleHandleW(nullptr);
    frame.hIcon = LoadIconW(nullptr, IDI_APPLICATION);
    frame.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    frame.hbrBackground = reinterpret_cast<HBRUSH>(static_cast<INT_PTR>(COLOR_APPWORKSPACE + 1));
    frame.lpszClassName = desk::lotus::OuterFrame::className;
    RegisterClassW(&frame);
    const HWND window = CreateWindowW(frame.lpszClassName, L"Lotus Notes", WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN, left,
                                      top, width, height, nullptr, nullptr, frame.hInstance, nullptr);
    ShowWindow(window, SW_SHOWNOACTIVATE);
}

// Handles what comes until the process ends.
void runUntilTheEndOf(HANDLE process)
{
    while (MsgWaitForMultipleObjects(1, &process, FALSE, INFINITE, QS_ALLINPUT) == WAIT_OBJECT_0 + 1) {
        MSG message;
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) DispatchMessageW(&message);
    }
}

}

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR, int)
{
    const wchar_t* const argument = std::wcsrchr(GetCommandLineW(), L' ');
    const DWORD processId = argument ? std::wcstoul(argument, nullptr, 10) : 0;
    const automation::Handle notes(OpenProcess(SYNCHRONIZE, FALSE, processId));
    if (!notes) return 1;
    showFrame();
    runUntilTheEndOf(notes.get());
    return 0;
}

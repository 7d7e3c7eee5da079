// A program that does nothing: tests give it the name of one that is watched.
// With anything on its command line it has a window, in front. It ends by itself
// after a while, so that a broken test leaves none behind.
#include <windows.h>

namespace {

constexpr UINT life = 60'000; // milliseconds

void showWindow()
{
    const HWND window = CreateWindowW(L"STATIC", L"stand-in", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 200, 100, nullptr,
                                      nullptr, GetModuleHandleW(nullptr), nullptr);
    SetForegroundWindow(window);
    SetTimer(window, 1, life, nullptr);
    MSG message;
    while (GetMessageW(&message, nullptr, 0, 0) > 0 && message.message != WM_TIMER) DispatchMessageW(&message);
}

}

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR commandLine, int)
{
    if (*commandLine) showWindow();
    else Sleep(life);
    return 0;
}

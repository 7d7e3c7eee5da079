// A program that does nothing: tests give it the name of one that is watched.
// With "window" on its command line it has a window, in front; with "child" or
// "hidden" and the number of another program's window, one in that, to be seen
// or not. It ends by itself after a while, so that a broken test leaves none behind.
#include <windows.h>

#include <cstdlib>
#include <cstring>

namespace {

constexpr UINT life = 60'000; // milliseconds

HWND makeWindow(DWORD style, HWND parent)
{
    return CreateWindowExW(WS_EX_NOPARENTNOTIFY, L"STATIC", L"stand-in", style, 0, 0, 200, 100, parent, nullptr,
                           GetModuleHandleW(nullptr), nullptr);
}

HWND makeWindow(const char* commandLine)
{
    const auto number = std::strtoul(commandLine + std::strcspn(commandLine, " "), nullptr, 10);
    const auto parent = reinterpret_cast<HWND>(static_cast<UINT_PTR>(number));
    if (std::strstr(commandLine, "child")) return makeWindow(WS_CHILD | WS_VISIBLE, parent);
    if (std::strstr(commandLine, "hidden")) return makeWindow(WS_CHILD, parent);
    const HWND window = makeWindow(WS_OVERLAPPEDWINDOW, nullptr);
    // In front in one step: whoever has seen it there may put another window in front of it.
    ShowWindow(window, SW_SHOWNOACTIVATE);
    SetForegroundWindow(window);
    return window;
}

void liveWith(HWND window)
{
    SetTimer(window, 1, life, nullptr);
    MSG message;
    while (GetMessageW(&message, nullptr, 0, 0) > 0 && message.message != WM_TIMER) DispatchMessageW(&message);
}

}

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR commandLine, int)
{
    if (*commandLine) liveWith(makeWindow(commandLine));
    else Sleep(life);
    return 0;
}

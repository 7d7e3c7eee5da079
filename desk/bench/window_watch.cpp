#include "desk/bench/window_watch.h"

#include <cwchar>
#include <stdexcept>
#include <utility>

namespace desk::bench {

namespace {

constexpr double timeout = 120'000; // milliseconds

bool isItemsWindow(HWND window)
{
    wchar_t name[32] = L"";
    GetClassNameW(window, name, static_cast<int>(std::size(name)));
    return std::wcscmp(name, L"rctrl_renwnd32") == 0;
}

// Waits until `holds`, looked at again when a message comes and after `pause`.
template <class Condition>
double momentOf(DWORD pause, Condition holds)
{
    for (const double start = now(); now() - start < timeout;) {
        if (holds()) return now();
        MsgWaitForMultipleObjects(0, nullptr, FALSE, pause, QS_ALLINPUT);
        MSG message;
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) DispatchMessageW(&message);
    }
    throw std::runtime_error("the window does not come or does not go");
}

}

HWND WindowWatch::created_ = nullptr;

double now()
{
    LARGE_INTEGER frequency;
    LARGE_INTEGER ticks;
    QueryPerformanceFrequency(&frequency);
    QueryPerformanceCounter(&ticks);
    return 1000.0 * static_cast<double>(ticks.QuadPart) / static_cast<double>(frequency.QuadPart);
}

WindowWatch::WindowWatch()
    : hook_(SetWinEventHook(EVENT_OBJECT_CREATE, EVENT_OBJECT_CREATE, nullptr, created, 0, 0, WINEVENT_OUTOFCONTEXT))
{
    if (!hook_) throw std::runtime_error("windows cannot be watched");
    created_ = nullptr;
}

WindowWatch::~WindowWatch()
{
    UnhookWinEvent(hook_);
}

void CALLBACK WindowWatch::created(HWINEVENTHOOK, DWORD, HWND window, LONG object, LONG, DWORD, DWORD) noexcept
{
    if (object == OBJID_WINDOW && isItemsWindow(window)) created_ = window;
}

// It gets its fields between its creation and its being shown.
double WindowWatch::shown()
{
    momentOf(1'000, [] { return created_ != nullptr; });
    seen_ = std::exchange(created_, nullptr);
    return momentOf(1, [this] { return IsWindowVisible(seen_) != FALSE; });
}

double WindowWatch::gone() const
{
    return momentOf(1, [this] { return !IsWindow(seen_); });
}

}

// When a window of an Outlook item comes to the screen and when it goes. Windows
// tells of its creation: who looked for it again and again would take the time of
// those who are measured.
#pragma once

#include <windows.h>

namespace desk::bench {

// Milliseconds of the system's finest clock.
double now();

class WindowWatch {
public:
    // One at a time. Throws std::runtime_error.
    WindowWatch();
    ~WindowWatch();
    WindowWatch(const WindowWatch&) = delete;
    WindowWatch& operator=(const WindowWatch&) = delete;

    // The moment when the next window is seen. Throws std::runtime_error when none
    // comes for long; so does the other.
    double shown();

    // The moment when the one that was seen last has gone.
    double gone() const;

private:
    static void CALLBACK created(HWINEVENTHOOK, DWORD, HWND window, LONG object, LONG, DWORD, DWORD) noexcept;

    static HWND created_; // null until there is one
    HWND seen_ = nullptr;
    HWINEVENTHOOK hook_;
};

}

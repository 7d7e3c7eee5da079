// The window of a second program, notes2.exe, in which the windows of this one
// lie as children: what Notes 8 looks like to who asks for the window in front.
#pragma once

#include <windows.h>

namespace desk::lotus {

class OuterFrame {
public:
    // Starts the program that lies beside this one, and waits for its window.
    // It ends by itself soon after this one. Throws std::runtime_error.
    OuterFrame();

    HWND handle() const noexcept { return window_; }

    // The window becomes a child of the frame, at the same place on the screen.
    void take(HWND window) const;

    static constexpr const wchar_t* className = L"DeskNotesFrame";

private:
    HWND window_ = nullptr;
};

}

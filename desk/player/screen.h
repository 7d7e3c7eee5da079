// What a user sees and does: windows, message boxes, the notification icon,
// the mouse and the keyboard.
#pragma once

#include <windows.h>

#include <string>
#include <vector>

namespace desk::player {

struct MessageBoxSeen {
    HWND window = nullptr;
    std::wstring text;
};

// The message boxes with that title now open, the topmost first.
std::vector<MessageBoxSeen> messageBoxes(const wchar_t* title);

// Answers a message box with one of its buttons (IDOK, IDYES, IDNO), without
// the mouse.
void answer(const MessageBoxSeen& box, int button);

// Real mouse input: on the first notification icon, and on a button of a
// message box. Throws std::runtime_error when there is no such button.
void moveToNotificationIcon();
void rightPress();
void leftPress();
void clickButton(const MessageBoxSeen& box, int button);

// Titles of the visible top-level windows of a process.
std::vector<std::wstring> windowTitles(DWORD processId);

// Brings the window with that title in front of the others, if there is one; which one is
// active stays as it is.
void bringToFront(const std::wstring& title);

// The whole screen into a 24-bit BMP file. Throws std::runtime_error.
void takePicture(const std::wstring& file);

// Handles the thread's messages for that long.
void waitFor(DWORD milliseconds);

// Handles messages until `condition` holds; false when it still does not after
// `milliseconds`.
template <class Condition>
bool waitUntil(Condition condition, DWORD milliseconds)
{
    for (const DWORD start = GetTickCount(); !condition(); waitFor(20))
        if (GetTickCount() - start > milliseconds) return false;
    return true;
}

}

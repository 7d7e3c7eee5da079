// The softphone's window: the user and the own number, what the line is doing,
// the last calls and the address book.
#pragma once

#include "desk/common/frame.h"
#include "desk/softphone/softphone.h"

#include <commctrl.h>

namespace desk::softphone {

class Window final : public Frame {
public:
    struct Handlers {
        std::function<void()> close;  // a person has closed the window
        std::function<void()> giveUp; // giveUpMessage has come
    };

    // Another thread may send it, when the program's end takes too long.
    static constexpr UINT giveUpMessage = WM_APP + 2;

    // Throws std::runtime_error when the window cannot be made.
    Window(Softphone& softphone, Handlers handlers);
    ~Window() override;

    // Shows the contents anew, soon: many changes in a row are shown once.
    void refresh();

    // Runs `action` from the message loop.
    void later(std::function<void()> action);

private:
    LRESULT onMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
    HWND addText(int top, int height, HFONT font, DWORD style = SS_LEFT) const;
    HWND addList(int top, int height, std::initializer_list<std::pair<const wchar_t*, int>> columns) const;
    void addControls();
    void show();
    void showCalls() const;
    void showEntries() const;
    LRESULT paintLine(HDC device) const;

    Softphone& softphone_;
    const Handlers handlers_;
    std::deque<std::function<void()>> actions_;
    HFONT font_ = nullptr;
    HFONT largeFont_ = nullptr;
    HBRUSH idle_ = nullptr;
    HBRUSH busy_ = nullptr;
    HWND user_ = nullptr;
    HWND number_ = nullptr;
    HWND line_ = nullptr;
    HWND calls_ = nullptr;
    HWND entries_ = nullptr;
    HWND attached_ = nullptr;
};

}

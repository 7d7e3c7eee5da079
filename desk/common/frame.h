// What the partners' windows are made of: a top-level window whose messages its
// object handles, and the heading of one that shows a record.
#pragma once

#include "desk/common/fonts.h"

#include <windows.h>

#include <string>

namespace desk {

class Frame {
public:
    Frame(const Frame&) = delete;
    Frame& operator=(const Frame&) = delete;

    HWND handle() const noexcept { return window_; }

protected:
    // Left, top, width and height in pixels, the frame included; not visible yet.
    // Throws std::runtime_error when there is none to be had.
    Frame(const wchar_t* className, const std::wstring& title, RECT place, int background = COLOR_WINDOW);
    virtual ~Frame();

    // Every message from then on.
    virtual LRESULT onMessage(UINT message, WPARAM wParam, LPARAM lParam) = 0;
    LRESULT handleByDefault(UINT message, WPARAM wParam, LPARAM lParam) const;

    // A visible child: left, top, width and height.
    HWND makeControl(const wchar_t* kind, const wchar_t* text, DWORD style, RECT place, DWORD extended = 0) const;

private:
    static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept;

    HWND window_ = nullptr;
};

// A coloured strip along a window's upper edge with a title.
class Heading {
public:
    Heading(COLORREF ground, COLORREF letters) : letters_(letters), ground_(CreateSolidBrush(ground)) {}
    ~Heading() { DeleteObject(ground_); }
    Heading(const Heading&) = delete;
    Heading& operator=(const Heading&) = delete;

    static constexpr int height = 40; // pixels

    void paint(HWND window, const std::wstring& title) const; // as the answer to WM_PAINT
    static void refresh(HWND window);

private:
    const Font font_{150, true};
    const COLORREF letters_;
    const HBRUSH ground_;
};

// Sets a text without flicker where it is the same already.
void setText(HWND window, const std::wstring& text);

}

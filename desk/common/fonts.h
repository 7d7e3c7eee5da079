// The user's own fonts, as dialogs use them.
#pragma once

#include <windows.h>

namespace desk {

class Font {
public:
    // `percent` of the size of message boxes' texts.
    explicit Font(int percent, bool bold = false);
    ~Font() { DeleteObject(font_); }
    Font(const Font&) = delete;
    Font& operator=(const Font&) = delete;

    HFONT get() const noexcept { return font_; }
    void applyTo(HWND control) const { SendMessageW(control, WM_SETFONT, reinterpret_cast<WPARAM>(font_), TRUE); }

private:
    HFONT font_;
};

}

// The window of a displayed document: its title, its mode, its items.
#pragma once

#include "desk/common/fonts.h"
#include "desk/lotus/screen.h"

#include <functional>

namespace desk::lotus {

class DocumentFrame {
public:
    struct Handlers {
        std::function<void()> closed;    // by the user, as all of these
        std::function<void()> saved;
        std::function<void(bool)> editing; // shall it be edited?
        std::function<void()> activated;
    };

    // `place` is the number of its place in the cascade, from 0.
    DocumentFrame(const DocumentView& view, int place, Handlers handlers);
    ~DocumentFrame();
    DocumentFrame(const DocumentFrame&) = delete;
    DocumentFrame& operator=(const DocumentFrame&) = delete;

    void show(const DocumentView& view);
    HWND handle() const noexcept { return window_; }
    int place() const noexcept { return place_; }

private:
    static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT handle(UINT message, WPARAM wParam, LPARAM lParam);
    void makeControls();
    HWND makeControl(const wchar_t* kind, const wchar_t* text, DWORD style, RECT place);
    void paintHeader(HDC device) const;
    void pressed(WORD button);

    const Handlers handlers_;
    const int place_;
    const Font font_{100};
    const Font titleFont_{150, true};
    const HBRUSH headerBrush_;
    HWND window_ = nullptr;
    HWND mode_ = nullptr;
    HWND items_ = nullptr;
    HWND edit_ = nullptr;
    HWND save_ = nullptr;
    std::wstring title_;
    bool editing_ = false;
};

}

// The window of a displayed document: its title, its mode, its items.
#pragma once

#include "desk/common/frame.h"
#include "desk/lotus/screen.h"

#include <functional>

namespace desk::lotus {

class DocumentFrame final : public Frame {
public:
    struct Handlers {
        std::function<void()> closed;    // by the user, as all of these
        std::function<void()> saved;
        std::function<void(bool)> editing; // shall it be edited?
        std::function<void()> activated;
    };

    // `place` is the number of its place in the cascade, from 0.
    DocumentFrame(const DocumentView& view, int place, Handlers handlers);

    void show(const DocumentView& view);
    int place() const noexcept { return place_; }

private:
    LRESULT onMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
    void makeControls();
    HWND addControl(const wchar_t* kind, const wchar_t* text, DWORD style, RECT place) const;
    void pressed(WORD button);

    const Handlers handlers_;
    const int place_;
    const Font font_{100};
    const Heading heading_;
    HWND mode_ = nullptr;
    HWND items_ = nullptr;
    HWND edit_ = nullptr;
    HWND save_ = nullptr;
    std::wstring title_;
    bool editing_ = false;
};

}

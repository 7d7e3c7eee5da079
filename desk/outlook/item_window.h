// The window of a displayed item: its name, its fields with labels, its text.
#pragma once

#include "desk/common/frame.h"
#include "desk/outlook/screen.h"

#include <functional>
#include <vector>

namespace desk::outlook {

class ItemWindow final : public Frame {
public:
    struct Handlers {
        std::function<void()> closed;       // the user closes the window
        std::function<void()> saveAndClose; // by the button
    };

    // `place` is the number of its place in the cascade, from 0.
    ItemWindow(const InspectorView& view, int place, Handlers handlers);

    void show(const InspectorView& view);
    void bringToFront();
    int place() const noexcept { return place_; }

private:
    LRESULT onMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
    void makeControls(const InspectorView& view);
    void makeField(int top, int height, bool body);
    HWND addControl(const wchar_t* kind, const wchar_t* text, DWORD style, RECT place, DWORD extended = 0) const;

    const Handlers handlers_;
    const int place_;
    const Font font_{100};
    const Heading heading_;
    std::wstring title_;
    std::vector<HWND> labels_;
    std::vector<HWND> edits_;
    HWND save_ = nullptr;
    HWND close_ = nullptr;
};

}

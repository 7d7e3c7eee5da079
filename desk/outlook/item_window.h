// The window of a displayed item: its name, its fields with labels, its text.
#pragma once

#include "desk/common/fonts.h"
#include "desk/outlook/screen.h"

#include <functional>
#include <vector>

namespace desk::outlook {

class ItemWindow {
public:
    struct Handlers {
        std::function<void()> closed;       // the user closes the window
        std::function<void()> saveAndClose; // by the button
    };

    // `place` is the number of its place in the cascade, from 0.
    ItemWindow(const InspectorView& view, int place, Handlers handlers);
    ~ItemWindow();
    ItemWindow(const ItemWindow&) = delete;
    ItemWindow& operator=(const ItemWindow&) = delete;

    void show(const InspectorView& view);
    void bringToFront();
    int place() const noexcept { return place_; }

private:
    static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT handle(UINT message, WPARAM wParam, LPARAM lParam);
    void makeControls(const InspectorView& view);
    void makeField(int top, int height, bool body);
    HWND makeControl(const wchar_t* kind, const std::wstring& text, DWORD style, DWORD extended, RECT place);
    void paintHeader(HDC device) const;

    const Handlers handlers_;
    const int place_;
    const Font font_{100};
    const Font titleFont_{150, true};
    const HBRUSH headerBrush_;
    HWND window_ = nullptr;
    std::wstring title_;
    std::vector<HWND> labels_;
    std::vector<HWND> edits_;
    HWND save_ = nullptr;
    HWND close_ = nullptr;
};

}

#include "desk/common/frame.h"

#include "automation/catch_all.h"
#include "desk/common/text.h"

#include <stdexcept>

namespace desk {

namespace {

constexpr int margin = 10; // pixels, left and right of a title

RECT strip(HWND window)
{
    RECT area;
    GetClientRect(window, &area);
    area.bottom = Heading::height;
    return area;
}

}

Frame::Frame(const wchar_t* className, const std::wstring& title, RECT place, int background)
{
    WNDCLASSW windowClass{};
    windowClass.lpfnWndProc = procedure;
    windowClass.hInstance = GetModuleHandleW(nullptr);
    windowClass.hIcon = LoadIconW(nullptr, IDI_APPLICATION);
    windowClass.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    windowClass.hbrBackground = reinterpret_cast<HBRUSH>(static_cast<INT_PTR>(background) + 1);
    windowClass.lpszClassName = className;
    RegisterClassW(&windowClass); // fails harmlessly from the second time on
    window_ = CreateWindowExW(0, className, title.c_str(),
                              WS_OVERLAPPED | WS_CAPTION | WS_SYSMENU | WS_MINIMIZEBOX | WS_CLIPCHILDREN, place.left,
                              place.top, place.right, place.bottom, nullptr, nullptr, windowClass.hInstance, nullptr);
    if (!window_) throw std::runtime_error("the window \"" + utf8(title) + "\" cannot be made");
    SetWindowLongPtrW(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
}

Frame::~Frame()
{
    SetWindowLongPtrW(window_, GWLP_USERDATA, 0);
    DestroyWindow(window_);
}

LRESULT CALLBACK Frame::procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept
{
    auto* self = reinterpret_cast<Frame*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (!self) return DefWindowProcW(window, message, wParam, lParam);
    return automation::catchAll(LRESULT{0}, [&] { return self->onMessage(message, wParam, lParam); });
}

LRESULT Frame::handleByDefault(UINT message, WPARAM wParam, LPARAM lParam) const
{
    return DefWindowProcW(window_, message, wParam, lParam);
}

HWND Frame::makeControl(const wchar_t* kind, const wchar_t* text, DWORD style, RECT place, DWORD extended) const
{
    return CreateWindowExW(extended, kind, text, WS_CHILD | WS_VISIBLE | style, place.left, place.top, place.right,
                           place.bottom, window_, nullptr, GetModuleHandleW(nullptr), nullptr);
}

void Heading::paint(HWND window, const std::wstring& title) const
{
    PAINTSTRUCT paint;
    const HDC device = BeginPaint(window, &paint);
    RECT area = strip(window);
    FillRect(device, &area, ground_);
    InflateRect(&area, -margin, 0);
    const HGDIOBJ before = SelectObject(device, font_.get());
    SetBkMode(device, TRANSPARENT);
    SetTextColor(device, letters_);
    DrawTextW(device, title.c_str(), -1, &area, DT_SINGLELINE | DT_VCENTER | DT_END_ELLIPSIS | DT_NOPREFIX);
    SelectObject(device, before);
    EndPaint(window, &paint);
}

void Heading::refresh(HWND window)
{
    const RECT area = strip(window);
    InvalidateRect(window, &area, TRUE);
}

void setText(HWND window, const std::wstring& text)
{
    std::wstring shown(static_cast<std::size_t>(GetWindowTextLengthW(window)), L'\0');
    GetWindowTextW(window, shown.data(), static_cast<int>(shown.size()) + 1);
    if (shown != text) SetWindowTextW(window, text.c_str());
}

}

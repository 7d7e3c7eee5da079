#include "desk/outlook/item_window.h"

#include <algorithm>
#include <stdexcept>

namespace desk::outlook {

namespace {

// The cascade lies right of the softphone and leaves every title visible on a
// screen of 1024 by 768 pixels.
constexpr int cascadeLeft = 318;
constexpr int cascadeTop = 4;
constexpr int cascadeStep = 27;
constexpr int width = 400;

constexpr int headerHeight = 40;
constexpr int margin = 10;
constexpr int labelWidth = 88;
constexpr int rowHeight = 21;
constexpr int rowStep = 25;
constexpr int bodyHeight = 72;
constexpr int buttonHeight = 24;
constexpr int buttonWidth = 104;
constexpr int inner = width - 16 - 2 * margin;

constexpr int saveId = 1;
constexpr int closeId = 2;

constexpr COLORREF headerColor = RGB(222, 232, 244);
constexpr COLORREF titleColor = RGB(30, 60, 110);

constexpr const wchar_t* windowClassName = L"rctrl_renwnd32";

void registerWindowClass(WNDPROC procedure)
{
    WNDCLASSW windowClass{};
    windowClass.lpfnWndProc = procedure;
    windowClass.hInstance = GetModuleHandleW(nullptr);
    windowClass.hIcon = LoadIconW(nullptr, IDI_APPLICATION);
    windowClass.hCursor = LoadCursorW(nullptr, IDC_ARROW);
    windowClass.hbrBackground = reinterpret_cast<HBRUSH>(COLOR_WINDOW + 1);
    windowClass.lpszClassName = windowClassName;
    RegisterClassW(&windowClass); // fails harmlessly from the second time on
}

// Edit boxes want carriage returns, bodies often have none.
std::wstring withCarriageReturns(const std::wstring& text)
{
    std::wstring result;
    for (const wchar_t c : text) {
        if (c == L'\n' && (result.empty() || result.back() != L'\r')) result += L'\r';
        result += c;
    }
    return result;
}

void setText(HWND control, const std::wstring& text)
{
    std::wstring shown(static_cast<std::size_t>(GetWindowTextLengthW(control)), L'\0');
    GetWindowTextW(control, shown.data(), static_cast<int>(shown.size()) + 1);
    if (shown != text) SetWindowTextW(control, text.c_str());
}

}

ItemWindow::ItemWindow(const InspectorView& view, int place, Handlers handlers)
    : handlers_(std::move(handlers)), place_(place), headerBrush_(CreateSolidBrush(headerColor))
{
    registerWindowClass(procedure);
    const DWORD style = WS_OVERLAPPED | WS_CAPTION | WS_SYSMENU | WS_MINIMIZEBOX | WS_CLIPCHILDREN;
    window_ = CreateWindowExW(0, windowClassName, view.title.c_str(), style, cascadeLeft + place * cascadeStep,
                              cascadeTop + place * cascadeStep, width, 200, nullptr, nullptr,
                              GetModuleHandleW(nullptr), nullptr);
    if (!window_) throw std::runtime_error("the item's window cannot be made");
    SetWindowLongPtrW(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    show(view);
    bringToFront();
    UpdateWindow(window_);
}

ItemWindow::~ItemWindow()
{
    SetWindowLongPtrW(window_, GWLP_USERDATA, 0);
    DestroyWindow(window_);
    DeleteObject(headerBrush_);
}

void ItemWindow::bringToFront()
{
    ShowWindow(window_, SW_SHOWNORMAL);
    SetForegroundWindow(window_);
}

void ItemWindow::show(const InspectorView& view)
{
    title_ = view.title;
    setText(window_, view.title);
    if (edits_.size() != view.fields.size()) makeControls(view);
    for (std::size_t row = 0; row < view.fields.size(); ++row) {
        setText(labels_[row], view.fields[row].first);
        setText(edits_[row], withCarriageReturns(view.fields[row].second));
    }
    const RECT header{0, 0, width, headerHeight};
    InvalidateRect(window_, &header, TRUE);
}

HWND ItemWindow::makeControl(const wchar_t* kind, const std::wstring& text, DWORD style, DWORD extended, RECT place)
{
    const HWND control = CreateWindowExW(extended, kind, text.c_str(), WS_CHILD | WS_VISIBLE | style, place.left,
                                         place.top, place.right, place.bottom, window_, nullptr,
                                         GetModuleHandleW(nullptr), nullptr);
    font_.giveTo(control);
    return control;
}

void ItemWindow::makeField(int top, int height, bool body)
{
    labels_.push_back(makeControl(L"STATIC", L"", SS_NOPREFIX, 0, {margin, top + 3, labelWidth, rowHeight - 3}));
    const DWORD style = ES_READONLY | WS_TABSTOP | (body ? ES_MULTILINE | WS_VSCROLL : ES_AUTOHSCROLL);
    edits_.push_back(makeControl(L"EDIT", L"", style, WS_EX_CLIENTEDGE,
                                 {margin + labelWidth, top, inner - labelWidth, height}));
}

// The last field is the item's text and gets more room.
void ItemWindow::makeControls(const InspectorView& view)
{
    for (const std::vector<HWND>* old : {&labels_, &edits_})
        for (const HWND control : *old) DestroyWindow(control);
    labels_.clear();
    edits_.clear();
    if (save_) DestroyWindow(save_);
    if (close_) DestroyWindow(close_);

    int top = headerHeight + margin;
    for (std::size_t row = 0; row < view.fields.size(); ++row) {
        const bool body = row + 1 == view.fields.size();
        makeField(top, body ? bodyHeight : rowHeight, body);
        top += body ? bodyHeight + margin : rowStep;
    }
    const int left = margin + inner - 2 * buttonWidth - margin;
    save_ = makeControl(L"BUTTON", L"Save && Close", WS_TABSTOP, 0, {left, top, buttonWidth, buttonHeight});
    close_ = makeControl(L"BUTTON", L"Close", WS_TABSTOP, 0,
                         {left + buttonWidth + margin, top, buttonWidth, buttonHeight});
    SetWindowLongPtrW(save_, GWLP_ID, saveId);
    SetWindowLongPtrW(close_, GWLP_ID, closeId);

    RECT frame{0, 0, inner + 2 * margin, top + buttonHeight + margin};
    AdjustWindowRect(&frame, static_cast<DWORD>(GetWindowLongPtrW(window_, GWL_STYLE)), FALSE);
    SetWindowPos(window_, nullptr, 0, 0, frame.right - frame.left, frame.bottom - frame.top,
                 SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void ItemWindow::paintHeader(HDC device) const
{
    RECT header;
    GetClientRect(window_, &header);
    header.bottom = headerHeight;
    FillRect(device, &header, headerBrush_);
    InflateRect(&header, -margin, 0);
    const HGDIOBJ before = SelectObject(device, titleFont_.get());
    SetBkMode(device, TRANSPARENT);
    SetTextColor(device, titleColor);
    const std::wstring name = title_.substr(0, title_.rfind(L" - "));
    DrawTextW(device, name.c_str(), -1, &header, DT_SINGLELINE | DT_VCENTER | DT_END_ELLIPSIS | DT_NOPREFIX);
    SelectObject(device, before);
}

LRESULT CALLBACK ItemWindow::procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    auto* self = reinterpret_cast<ItemWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    return self ? self->handle(message, wParam, lParam) : DefWindowProcW(window, message, wParam, lParam);
}

LRESULT ItemWindow::handle(UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message) {
    case WM_PAINT: {
        PAINTSTRUCT paint;
        paintHeader(BeginPaint(window_, &paint));
        EndPaint(window_, &paint);
        return 0;
    }
    case WM_CTLCOLORSTATIC: // labels, and boxes that are read only
        SetBkMode(reinterpret_cast<HDC>(wParam), TRANSPARENT);
        return reinterpret_cast<LRESULT>(GetSysColorBrush(COLOR_WINDOW));
    case WM_COMMAND: {
        // The handler ends this object.
        const auto handler = LOWORD(wParam) == saveId ? handlers_.saveAndClose : handlers_.closed;
        const bool button = lParam != 0 && HIWORD(wParam) == BN_CLICKED;
        if (button && (LOWORD(wParam) == saveId || LOWORD(wParam) == closeId)) handler();
        return 0;
    }
    case WM_CLOSE: {
        const auto handler = handlers_.closed;
        handler();
        return 0;
    }
    default: return DefWindowProcW(window_, message, wParam, lParam);
    }
}

}

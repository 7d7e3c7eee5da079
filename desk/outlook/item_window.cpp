#include "desk/outlook/item_window.h"

namespace desk::outlook {

namespace {

// The cascade lies right of the softphone and leaves every title visible on a
// screen of 1024 by 768 pixels.
constexpr int cascadeLeft = 318;
constexpr int cascadeTop = 4;
constexpr int cascadeStep = 27;
constexpr int width = 400;
constexpr int firstHeight = 200; // until it has its fields

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

constexpr COLORREF headingColor = RGB(222, 232, 244);
constexpr COLORREF titleColor = RGB(30, 60, 110);

constexpr const wchar_t* windowClassName = L"rctrl_renwnd32";

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

}

ItemWindow::ItemWindow(const InspectorView& view, int place, Handlers handlers)
    : Frame(windowClassName, view.title,
            {cascadeLeft + place * cascadeStep, cascadeTop + place * cascadeStep, width, firstHeight}),
      handlers_(std::move(handlers)), place_(place), heading_(headingColor, titleColor)
{
    show(view);
    bringToFront();
    UpdateWindow(handle());
}

void ItemWindow::bringToFront()
{
    ShowWindow(handle(), SW_SHOWNORMAL);
    SetForegroundWindow(handle());
}

void ItemWindow::show(const InspectorView& view)
{
    title_ = view.title;
    setText(handle(), view.title);
    if (edits_.size() != view.fields.size()) makeControls(view);
    for (std::size_t row = 0; row < view.fields.size(); ++row) {
        setText(labels_[row], view.fields[row].first);
        setText(edits_[row], withCarriageReturns(view.fields[row].second));
    }
    Heading::refresh(handle());
}

HWND ItemWindow::addControl(const wchar_t* kind, const wchar_t* text, DWORD style, RECT place, DWORD extended) const
{
    const HWND control = makeControl(kind, text, style, place, extended);
    font_.applyTo(control);
    return control;
}

void ItemWindow::makeField(int top, int height, bool body)
{
    labels_.push_back(addControl(L"STATIC", L"", SS_NOPREFIX, {margin, top + 3, labelWidth, rowHeight - 3}));
    const DWORD style = ES_READONLY | WS_TABSTOP | (body ? ES_MULTILINE | WS_VSCROLL : ES_AUTOHSCROLL);
    edits_.push_back(
        addControl(L"EDIT", L"", style, {margin + labelWidth, top, inner - labelWidth, height}, WS_EX_CLIENTEDGE));
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

    int top = Heading::height + margin;
    for (std::size_t row = 0; row < view.fields.size(); ++row) {
        const bool body = row + 1 == view.fields.size();
        makeField(top, body ? bodyHeight : rowHeight, body);
        top += body ? bodyHeight + margin : rowStep;
    }
    const int left = margin + inner - 2 * buttonWidth - margin;
    save_ = addControl(L"BUTTON", L"Save && Close", WS_TABSTOP, {left, top, buttonWidth, buttonHeight});
    close_ = addControl(L"BUTTON", L"Close", WS_TABSTOP, {left + buttonWidth + margin, top, buttonWidth, buttonHeight});
    SetWindowLongPtrW(save_, GWLP_ID, saveId);
    SetWindowLongPtrW(close_, GWLP_ID, closeId);

    RECT frame{0, 0, inner + 2 * margin, top + buttonHeight + margin};
    AdjustWindowRect(&frame, static_cast<DWORD>(GetWindowLongPtrW(handle(), GWL_STYLE)), FALSE);
    SetWindowPos(handle(), nullptr, 0, 0, frame.right - frame.left, frame.bottom - frame.top,
                 SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

LRESULT ItemWindow::onMessage(UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message) {
    case WM_PAINT: heading_.paint(handle(), title_.substr(0, title_.rfind(L" - "))); return 0;
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
    default: return handleByDefault(message, wParam, lParam);
    }
}

}

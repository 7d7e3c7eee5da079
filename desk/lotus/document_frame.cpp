#include "desk/lotus/document_frame.h"

#include <algorithm>
#include <stdexcept>

namespace desk::lotus {

namespace {

// The cascade lies right of Outlook's first windows and leaves every title
// visible on a screen of 1600 by 768 pixels.
constexpr int cascadeLeft = 880;
constexpr int cascadeTop = 4;
constexpr int cascadeStep = 27;
constexpr int width = 400;
constexpr int height = 360;

constexpr int headerHeight = 40;
constexpr int margin = 10;
constexpr int modeHeight = 16;
constexpr int buttonHeight = 24;
constexpr int buttonWidth = 88;
constexpr DWORD valueColumn = 88; // dialog units right of the names

constexpr WORD editId = 1;
constexpr WORD saveId = 2;
constexpr WORD closeId = 3;

constexpr COLORREF headerColor = RGB(250, 238, 196);
constexpr COLORREF titleColor = RGB(104, 72, 0);

constexpr const wchar_t* windowClassName = L"DeskNotesDocument";

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

// A line for each item, the lines of a longer text below one another.
std::wstring linesOf(const DocumentView& view)
{
    std::wstring lines;
    for (const auto& [name, text] : view.items) {
        lines += name + L"\t";
        for (const wchar_t c : text) {
            if (c == L'\r') continue;
            lines += c == L'\n' ? std::wstring(L"\r\n\t") : std::wstring(1, c);
        }
        lines += L"\r\n";
    }
    return lines;
}

void setText(HWND control, const std::wstring& text)
{
    std::wstring shown(static_cast<std::size_t>(GetWindowTextLengthW(control)), L'\0');
    GetWindowTextW(control, shown.data(), static_cast<int>(shown.size()) + 1);
    if (shown != text) SetWindowTextW(control, text.c_str());
}

}

DocumentFrame::DocumentFrame(const DocumentView& view, int place, Handlers handlers)
    : handlers_(std::move(handlers)), place_(place), headerBrush_(CreateSolidBrush(headerColor))
{
    registerWindowClass(procedure);
    const DWORD style = WS_OVERLAPPED | WS_CAPTION | WS_SYSMENU | WS_MINIMIZEBOX | WS_CLIPCHILDREN;
    window_ = CreateWindowExW(0, windowClassName, view.title.c_str(), style, cascadeLeft + place * cascadeStep,
                              cascadeTop + place * cascadeStep, width, height, nullptr, nullptr,
                              GetModuleHandleW(nullptr), nullptr);
    if (!window_) throw std::runtime_error("the document's window cannot be made");
    SetWindowLongPtrW(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    makeControls();
    show(view);
}

DocumentFrame::~DocumentFrame()
{
    SetWindowLongPtrW(window_, GWLP_USERDATA, 0);
    DestroyWindow(window_);
    DeleteObject(headerBrush_);
}

HWND DocumentFrame::makeControl(const wchar_t* kind, const wchar_t* text, DWORD style, RECT place)
{
    const HWND control = CreateWindowExW(0, kind, text, WS_CHILD | WS_VISIBLE | style, place.left, place.top,
                                         place.right, place.bottom, window_, nullptr, GetModuleHandleW(nullptr), nullptr);
    font_.giveTo(control);
    return control;
}

void DocumentFrame::makeControls()
{
    RECT client;
    GetClientRect(window_, &client);
    const LONG inner = client.right - 2 * margin;
    LONG top = headerHeight + margin;
    mode_ = makeControl(L"STATIC", L"", SS_NOPREFIX, {margin, top, inner, modeHeight});
    top += modeHeight + margin;
    const LONG buttonTop = client.bottom - margin - buttonHeight;
    items_ = makeControl(L"EDIT", L"", WS_BORDER | WS_TABSTOP | WS_VSCROLL | ES_MULTILINE | ES_READONLY | ES_AUTOVSCROLL,
                         {margin, top, inner, buttonTop - margin - top});
    SendMessageW(items_, EM_SETTABSTOPS, 1, reinterpret_cast<LPARAM>(&valueColumn));
    const auto button = [&](const wchar_t* text, LONG fromRight, WORD id) {
        const HWND made = makeControl(L"BUTTON", text, WS_TABSTOP,
                                      {client.right - fromRight * (margin + buttonWidth), buttonTop, buttonWidth,
                                       buttonHeight});
        SetWindowLongPtrW(made, GWLP_ID, id);
        return made;
    };
    edit_ = button(L"Edit", 3, editId);
    save_ = button(L"Save", 2, saveId);
    button(L"Close", 1, closeId);
}

void DocumentFrame::show(const DocumentView& view)
{
    title_ = view.title;
    editing_ = view.editing;
    setText(window_, view.title + L" - Lotus Notes");
    setText(mode_, editing_ ? L"Edit mode" : L"Read mode");
    setText(items_, linesOf(view));
    setText(edit_, editing_ ? L"Read" : L"Edit");
    EnableWindow(save_, editing_);
    const RECT header{0, 0, width, headerHeight};
    InvalidateRect(window_, &header, TRUE);
}

void DocumentFrame::paintHeader(HDC device) const
{
    RECT header;
    GetClientRect(window_, &header);
    header.bottom = headerHeight;
    FillRect(device, &header, headerBrush_);
    InflateRect(&header, -margin, 0);
    const HGDIOBJ before = SelectObject(device, titleFont_.get());
    SetBkMode(device, TRANSPARENT);
    SetTextColor(device, titleColor);
    DrawTextW(device, title_.c_str(), -1, &header, DT_SINGLELINE | DT_VCENTER | DT_END_ELLIPSIS | DT_NOPREFIX);
    SelectObject(device, before);
}

LRESULT CALLBACK DocumentFrame::procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    auto* self = reinterpret_cast<DocumentFrame*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    return self ? self->handle(message, wParam, lParam) : DefWindowProcW(window, message, wParam, lParam);
}

// The handler may end this object, so it is called as a copy.
void DocumentFrame::pressed(WORD button)
{
    const Handlers handlers = handlers_;
    if (button == editId) handlers.editing(!editing_);
    if (button == saveId) handlers.saved();
    if (button == closeId) handlers.closed();
}

LRESULT DocumentFrame::handle(UINT message, WPARAM wParam, LPARAM lParam)
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
    case WM_COMMAND:
        if (lParam != 0 && HIWORD(wParam) == BN_CLICKED) pressed(LOWORD(wParam));
        return 0;
    case WM_ACTIVATE:
        if (LOWORD(wParam) != WA_INACTIVE) handlers_.activated();
        return DefWindowProcW(window_, message, wParam, lParam);
    case WM_CLOSE:
        pressed(closeId);
        return 0;
    default: return DefWindowProcW(window_, message, wParam, lParam);
    }
}

}

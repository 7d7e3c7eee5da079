#include "desk/lotus/document_frame.h"

namespace desk::lotus {

namespace {

// The cascade lies right of Outlook's first windows and leaves every title
// visible on a screen of 1600 by 768 pixels.
constexpr int cascadeLeft = 880;
constexpr int cascadeTop = 4;
constexpr int cascadeStep = 27;
constexpr int width = 400;
constexpr int height = 360;

constexpr int margin = 10;
constexpr int modeHeight = 16;
constexpr int buttonHeight = 24;
constexpr int buttonWidth = 88;
constexpr DWORD valueColumn = 88; // dialog units right of the names

constexpr WORD editId = 1;
constexpr WORD saveId = 2;
constexpr WORD closeId = 3;

constexpr COLORREF headingColor = RGB(250, 238, 196);
constexpr COLORREF titleColor = RGB(104, 72, 0);

constexpr const wchar_t* windowClassName = L"DeskNotesDocument";

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

}

DocumentFrame::DocumentFrame(const DocumentView& view, int place, Handlers handlers)
    : Frame(windowClassName, view.title,
            {cascadeLeft + place * cascadeStep, cascadeTop + place * cascadeStep, width, height}),
      handlers_(std::move(handlers)), place_(place), heading_(headingColor, titleColor)
{
    makeControls();
    show(view);
}

HWND DocumentFrame::addControl(const wchar_t* kind, const wchar_t* text, DWORD style, RECT place) const
{
    const HWND control = makeControl(kind, text, style, place);
    font_.applyTo(control);
    return control;
}

void DocumentFrame::makeControls()
{
    RECT client;
    GetClientRect(handle(), &client);
    const LONG inner = client.right - 2 * margin;
    LONG top = Heading::height + margin;
    mode_ = addControl(L"STATIC", L"", SS_NOPREFIX, {margin, top, inner, modeHeight});
    top += modeHeight + margin;
    const LONG buttonTop = client.bottom - margin - buttonHeight;
    items_ = addControl(L"EDIT", L"", WS_BORDER | WS_TABSTOP | WS_VSCROLL | ES_MULTILINE | ES_READONLY | ES_AUTOVSCROLL,
                        {margin, top, inner, buttonTop - margin - top});
    SendMessageW(items_, EM_SETTABSTOPS, 1, reinterpret_cast<LPARAM>(&valueColumn));
    const auto button = [&](const wchar_t* text, LONG fromRight, WORD id) {
        const HWND made =
            addControl(L"BUTTON", text, WS_TABSTOP,
                       {client.right - fromRight * (margin + buttonWidth), buttonTop, buttonWidth, buttonHeight});
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
    setText(handle(), view.title + L" - Lotus Notes");
    setText(mode_, editing_ ? L"Edit mode" : L"Read mode");
    setText(items_, linesOf(view));
    setText(edit_, editing_ ? L"Read" : L"Edit");
    EnableWindow(save_, editing_);
    Heading::refresh(handle());
}

// The handler may end this object, so it is called as a copy.
void DocumentFrame::pressed(WORD button)
{
    const Handlers handlers = handlers_;
    if (button == editId) handlers.editing(!editing_);
    if (button == saveId) handlers.saved();
    if (button == closeId) handlers.closed();
}

LRESULT DocumentFrame::onMessage(UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message) {
    case WM_PAINT: heading_.paint(handle(), title_); return 0;
    case WM_CTLCOLORSTATIC: // labels, and boxes that are read only
        SetBkMode(reinterpret_cast<HDC>(wParam), TRANSPARENT);
        return reinterpret_cast<LRESULT>(GetSysColorBrush(COLOR_WINDOW));
    case WM_COMMAND:
        if (lParam != 0 && HIWORD(wParam) == BN_CLICKED) pressed(LOWORD(wParam));
        return 0;
    case WM_ACTIVATE:
        if (LOWORD(wParam) != WA_INACTIVE) handlers_.activated();
        return handleByDefault(message, wParam, lParam);
    case WM_CLOSE: pressed(closeId); return 0;
    default: return handleByDefault(message, wParam, lParam);
    }
}

}

#include "desk/softphone/window.h"

#include "desk/common/text.h"

namespace desk::softphone {

namespace {

constexpr UINT actionMessage = WM_APP + 1;
constexpr UINT_PTR refreshTimer = 1;
constexpr UINT refreshDelay = 100; // milliseconds
constexpr int left = 0;
constexpr int top = 120;
constexpr int width = 300;
constexpr int height = 420;
constexpr int margin = 8;
constexpr int inner = width - 2 * margin - 6; // what the frame leaves
constexpr int maxShown = 200;                 // of a long list
constexpr COLORREF idleColor = RGB(225, 228, 232);
constexpr COLORREF busyColor = RGB(190, 230, 190);

HFONT makeFont(LONG size, LONG weight)
{
    LOGFONTW font{};
    font.lfHeight = -size;
    font.lfWeight = weight;
    font.lfQuality = CLEARTYPE_QUALITY;
    lstrcpynW(font.lfFaceName, L"Tahoma", LF_FACESIZE);
    return CreateFontIndirectW(&font);
}

std::wstring nameOf(const Party& party)
{
    const bool both = !party.firstName.empty() && !party.lastName.empty();
    return party.firstName + (both ? L" " : L"") + party.lastName;
}

void addRow(HWND list, int row, const std::vector<std::wstring>& texts)
{
    for (std::size_t column = 0; column < texts.size(); ++column) {
        LVITEMW item{};
        item.mask = LVIF_TEXT;
        item.iItem = row;
        item.iSubItem = static_cast<int>(column);
        item.pszText = const_cast<wchar_t*>(texts[column].c_str());
        SendMessageW(list, column == 0 ? LVM_INSERTITEMW : LVM_SETITEMW, 0, reinterpret_cast<LPARAM>(&item));
    }
}

// Shows a list anew, without flicker.
template <class Iterator, class Row>
void fill(HWND list, Iterator record, Iterator end, Row rowOf)
{
    SendMessageW(list, WM_SETREDRAW, FALSE, 0);
    SendMessageW(list, LVM_DELETEALLITEMS, 0, 0);
    for (int row = 0; record != end && row < maxShown; ++record) addRow(list, row++, rowOf(*record));
    SendMessageW(list, WM_SETREDRAW, TRUE, 0);
    InvalidateRect(list, nullptr, TRUE);
}

}

Window::Window(Softphone& softphone, Handlers handlers)
    : Frame(L"PavexWindow", L"Pavex", {left, top, width, height}), softphone_(softphone), handlers_(std::move(handlers))
{
    const INITCOMMONCONTROLSEX controls{sizeof controls, ICC_LISTVIEW_CLASSES};
    InitCommonControlsEx(&controls);
    font_ = makeFont(11, FW_NORMAL);
    largeFont_ = makeFont(15, FW_BOLD);
    idle_ = CreateSolidBrush(idleColor);
    busy_ = CreateSolidBrush(busyColor);
    addControls();
    show();
    ShowWindow(handle(), SW_SHOWNOACTIVATE);
    UpdateWindow(handle());
}

Window::~Window()
{
    for (const HGDIOBJ object : {HGDIOBJ(font_), HGDIOBJ(largeFont_), HGDIOBJ(idle_), HGDIOBJ(busy_)})
        DeleteObject(object);
}

void Window::refresh()
{
    SetTimer(handle(), refreshTimer, refreshDelay, nullptr);
}

void Window::later(std::function<void()> action)
{
    actions_.push_back(std::move(action));
    PostMessageW(handle(), actionMessage, 0, 0);
}

HWND Window::addText(int textTop, int textHeight, HFONT font, DWORD style) const
{
    const HWND text = makeControl(L"STATIC", L"", SS_NOPREFIX | style, {margin, textTop, inner, textHeight});
    SendMessageW(text, WM_SETFONT, reinterpret_cast<WPARAM>(font), FALSE);
    return text;
}

HWND Window::addList(int listTop, int listHeight, std::initializer_list<std::pair<const wchar_t*, int>> columns) const
{
    const HWND list = makeControl(WC_LISTVIEWW, L"", WS_TABSTOP | LVS_REPORT | LVS_SINGLESEL | LVS_NOSORTHEADER,
                                  {margin, listTop, inner, listHeight}, WS_EX_CLIENTEDGE);
    SendMessageW(list, WM_SETFONT, reinterpret_cast<WPARAM>(font_), FALSE);
    SendMessageW(list, LVM_SETEXTENDEDLISTVIEWSTYLE, 0, LVS_EX_FULLROWSELECT);
    int index = 0;
    for (const auto& [title, columnWidth] : columns) {
        LVCOLUMNW column{};
        column.mask = LVCF_TEXT | LVCF_WIDTH;
        column.pszText = const_cast<wchar_t*>(title);
        column.cx = columnWidth;
        SendMessageW(list, LVM_INSERTCOLUMNW, static_cast<WPARAM>(index++), reinterpret_cast<LPARAM>(&column));
    }
    return list;
}

void Window::addControls()
{
    user_ = addText(8, 20, largeFont_);
    number_ = addText(28, 16, font_);
    line_ = addText(48, 40, font_, SS_LEFT | SS_SUNKEN);
    calls_ = addList(96, 148, {{L"", 18}, {L"Call", 92}, {L"Number", 74}, {L"Begin", 72}});
    entries_ = addList(250, 116, {{L"Address book", 150}, {L"Number", 106}});
    attached_ = addText(371, 16, font_);
}

void Window::show()
{
    const Phone& phone = softphone_.phone();
    const User& user = phone.contents.user;
    SetWindowTextW(user_, (user.firstText + L" " + user.secondText).c_str());
    SetWindowTextW(number_, user.number.c_str());
    std::wstring line = L" " + lineState(phone);
    if (phone.call) {
        line += L": " + nameOf(phone.call->party) + L"  " + phone.call->party.number;
        if (!phone.call->destinationNumber.empty()) line += L"\n to " + phone.call->destinationNumber;
    }
    SetWindowTextW(line_, line.c_str());
    InvalidateRect(line_, nullptr, TRUE);
    showCalls();
    showEntries();
    SetWindowTextW(attached_, phone.attached ? L"Connector attached" : L"No connector attached");
}

void Window::showCalls() const
{
    const auto& records = softphone_.phone().contents.history.records();
    fill(calls_, records.rbegin(), records.rend(), [](const HistoryRecord& record) { // the newest first
        return std::vector<std::wstring>{record.incoming ? L"<" : L">", nameOf(record.party), record.party.number,
                                         isoText(record.begin).substr(5, 11)}; // without year and seconds
    });
}

void Window::showEntries() const
{
    const auto& records = softphone_.phone().contents.entries.records();
    fill(entries_, records.begin(), records.end(), [](const EntryRecord& record) {
        return std::vector<std::wstring>{nameOf(record.party), record.party.number};
    });
}

LRESULT Window::paintLine(HDC device) const
{
    const bool busy = softphone_.phone().call.has_value();
    SetBkColor(device, busy ? busyColor : idleColor);
    return reinterpret_cast<LRESULT>(busy ? busy_ : idle_);
}

LRESULT Window::onMessage(UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message) {
    case WM_CLOSE: handlers_.close(); return 0;
    case giveUpMessage: handlers_.giveUp(); return 0;
    case WM_TIMER:
        KillTimer(handle(), refreshTimer);
        show();
        return 0;
    case WM_CTLCOLORSTATIC:
        if (reinterpret_cast<HWND>(lParam) == line_) return paintLine(reinterpret_cast<HDC>(wParam));
        SetBkColor(reinterpret_cast<HDC>(wParam), GetSysColor(COLOR_WINDOW));
        return reinterpret_cast<LRESULT>(GetSysColorBrush(COLOR_WINDOW));
    case actionMessage:
        if (!actions_.empty()) {
            const auto action = std::move(actions_.front());
            actions_.pop_front();
            action();
        }
        return 0;
    default: return handleByDefault(message, wParam, lParam);
    }
}

}

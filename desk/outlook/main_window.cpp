#include "desk/outlook/main_window.h"

#include "desk/common/list_view.h"
#include "desk/common/text.h"

#include <algorithm>

namespace desk::outlook {

namespace {

constexpr int left = 306;
constexpr int top = 432; // below the first windows of items
constexpr int width = 714;
constexpr int height = 314;
constexpr int foldersWidth = 170;
constexpr int statusHeight = 20;
constexpr int margin = 4;
constexpr UINT_PTR updateTimer = 1;
constexpr UINT updateDelay = 150; // milliseconds
constexpr long firstShown = folders::contacts;

constexpr const wchar_t* windowClassName = L"DeskOutlookMain";

struct Columns {
    ItemClass itemClass;
    const wchar_t* titles[3];
    const wchar_t* fields[3];
};

constexpr Columns columnsOf[] = {
    {ItemClass::contact,
     {L"Name", L"Company", L"Business phone"},
     {L"FileAs", L"CompanyName", L"BusinessTelephoneNumber"}},
    {ItemClass::journal, {L"Subject", L"Start", L"Entry type"}, {L"Subject", L"Start", L"Type"}},
    {ItemClass::mail, {L"Subject", L"To", L"Sent"}, {L"Subject", L"To", L"SentOn"}}};

constexpr int columnWidths[] = {220, 140, 120};

const Columns& columnsFor(const Folder& folder)
{
    for (const Columns& columns : columnsOf)
        if (columns.itemClass == folder.defaultClass) return columns;
    return columnsOf[0];
}

}

MainWindow::MainWindow(Handlers handlers)
    : Frame(windowClassName, L"Microsoft Outlook", {left, top, width, height}, COLOR_BTNFACE),
      handlers_(std::move(handlers))
{
    makeLists();
}

void MainWindow::makeLists()
{
    RECT client;
    GetClientRect(handle(), &client);
    const int listHeight = client.bottom - statusHeight - 2 * margin;
    folders_ = makeList(handle(), {margin, margin, foldersWidth, listHeight});
    items_ =
        makeList(handle(), {foldersWidth + 2 * margin, margin, client.right - foldersWidth - 3 * margin, listHeight},
                 LVS_OWNERDATA);
    status_ = makeControl(L"STATIC", L"", SS_NOPREFIX,
                          {2 * margin, client.bottom - statusHeight, client.right - 4 * margin, statusHeight - margin});
    for (const HWND control : {folders_, items_, status_}) font_.applyTo(control);
    addColumn(folders_, 0, L"Folder", foldersWidth - 60);
    addColumn(folders_, 1, L"Items", 54, LVCFMT_RIGHT);
}

void MainWindow::watch(Mailbox& mailbox)
{
    mailbox_ = &mailbox;
    for (std::size_t index = 0; index < mailbox.all().size(); ++index) {
        const Folder& folder = mailbox.all()[index];
        addRow(folders_, static_cast<int>(index), folder.name);
        if (folder.number == firstShown) chosen_ = index;
    }
    choose(chosen_);
    select(chosen_);
    ShowWindow(handle(), SW_SHOWNOACTIVATE);
    UpdateWindow(handle());
}

// The list answers with a notification that chooses it.
void MainWindow::select(std::size_t folder)
{
    LVITEMW selected{};
    selected.state = selected.stateMask = LVIS_SELECTED;
    SendMessageW(folders_, LVM_SETITEMSTATE, folder, reinterpret_cast<LPARAM>(&selected));
}

bool MainWindow::show(std::wstring_view folderName)
{
    for (std::size_t index = 0; index < mailbox_->all().size(); ++index)
        if (mailbox_->all()[index].name == folderName) return select(index), true;
    return false;
}

const Folder* MainWindow::chosen() const
{
    return mailbox_ ? &mailbox_->all()[chosen_] : nullptr;
}

void MainWindow::choose(std::size_t folder)
{
    chosen_ = folder;
    const Columns& columns = columnsFor(*chosen());
    removeColumns(items_);
    for (int index = 0; index < 3; ++index) addColumn(items_, index, columns.titles[index], columnWidths[index]);
    SetWindowTextW(handle(), (chosen()->name + std::wstring(L" - Microsoft Outlook")).c_str());
    refresh();
}

void MainWindow::update()
{
    if (waiting_ || !mailbox_) return;
    waiting_ = true;
    SetTimer(handle(), updateTimer, updateDelay, nullptr);
}

void MainWindow::refresh()
{
    waiting_ = false;
    KillTimer(handle(), updateTimer);
    int row = 0;
    for (const Folder& folder : mailbox_->all()) setCell(folders_, row++, 1, std::to_wstring(folder.items.size()));
    const std::size_t count = chosen()->items.size();
    setRowCount(items_, count);
    SetWindowTextW(status_, (std::to_wstring(count) + (count == 1 ? L" item" : L" items")).c_str());
}

void MainWindow::fillRow(LVITEMW& row)
{
    const auto& items = chosen()->items;
    if (!(row.mask & LVIF_TEXT) || row.iSubItem > 2 || static_cast<std::size_t>(row.iItem) >= items.size()) return;
    const Item& item = *items[static_cast<std::size_t>(row.iItem)];
    const Field& field = *fieldNamed(columnsFor(*chosen()).fields[row.iSubItem]);
    cell_ = row.iSubItem == 0 && item.itemClass == ItemClass::distributionList ? nameOf(item)
            : field.in(item.itemClass)                                         ? valueOf(item, field).text()
                                                                               : std::wstring();
    if (field.type == FieldType::date && valueOf(item, field).asDate() == noDate) cell_.clear();
    row.pszText = cell_.data();
}

LRESULT MainWindow::notified(NMHDR& header)
{
    if (header.hwndFrom == items_ && header.code == LVN_GETDISPINFOW)
        fillRow(reinterpret_cast<NMLVDISPINFOW&>(header).item);
    if (header.hwndFrom == items_ && header.code == NM_DBLCLK) {
        const auto& items = chosen()->items;
        const auto row = static_cast<std::size_t>(reinterpret_cast<NMITEMACTIVATE&>(header).iItem);
        if (row < items.size()) handlers_.opened(std::wstring(items[row]->entryId));
    }
    if (header.hwndFrom == folders_ && header.code == LVN_ITEMCHANGED) {
        const auto& change = reinterpret_cast<NMLISTVIEW&>(header);
        const bool selected = (change.uNewState & ~change.uOldState & LVIS_SELECTED) != 0;
        if (selected && static_cast<std::size_t>(change.iItem) != chosen_)
            choose(static_cast<std::size_t>(change.iItem));
    }
    return 0;
}

LRESULT MainWindow::onMessage(UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message) {
    case WM_NOTIFY: return mailbox_ ? notified(*reinterpret_cast<NMHDR*>(lParam)) : 0;
    case WM_TIMER: refresh(); return 0;
    case WM_CLOSE: handlers_.closed(); return 0;
    default: return handleByDefault(message, wParam, lParam);
    }
}

}

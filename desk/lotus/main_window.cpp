#include "desk/lotus/main_window.h"

namespace desk::lotus {

namespace {

constexpr int left = 1024; // beside Outlook's
constexpr int top = 400;  // below the first windows of documents
constexpr int width = 572;
constexpr int height = 346;
constexpr int leftWidth = 290;
constexpr int databasesHeight = 150;
constexpr int statusHeight = 20;
constexpr int margin = 4;
constexpr int columnWidth = 120;
constexpr UINT_PTR updateTimer = 1;
constexpr UINT updateDelay = 150; // milliseconds

constexpr const wchar_t* windowClassName = L"DeskNotesMain";

bool wantsText(const LVITEMW& row, std::size_t rows)
{
    return (row.mask & LVIF_TEXT) && static_cast<std::size_t>(row.iItem) < rows;
}

}

MainWindow::MainWindow(Handlers handlers)
    : Frame(windowClassName, L"Workspace - Lotus Notes", {left, top, width, height}, COLOR_BTNFACE),
      handlers_(std::move(handlers))
{
    makeLists();
}

void MainWindow::makeLists()
{
    RECT client;
    GetClientRect(handle(), &client);
    const LONG inner = client.bottom - statusHeight - 2 * margin;
    databases_ = makeList(handle(), {margin, margin, leftWidth, databasesHeight}, LVS_OWNERDATA);
    variables_ = makeList(handle(), {margin, databasesHeight + 2 * margin, leftWidth, inner - databasesHeight - margin},
                          LVS_OWNERDATA);
    documents_ = makeList(handle(), {leftWidth + 2 * margin, margin, client.right - leftWidth - 3 * margin, inner},
                          LVS_OWNERDATA);
    status_ = makeControl(L"STATIC", L"", SS_NOPREFIX,
                          {2 * margin, client.bottom - statusHeight, client.right - 4 * margin, statusHeight - margin});
    for (const HWND control : {databases_, variables_, documents_, status_}) font_.applyTo(control);
    addColumn(databases_, 0, L"Database", 140);
    addColumn(databases_, 1, L"On", 72);
    addColumn(databases_, 2, L"Documents", 66, LVCFMT_RIGHT);
    addColumn(variables_, 0, L"Environment", 140);
    addColumn(variables_, 1, L"Value", 138);
}

void MainWindow::watch(Notes& notes)
{
    notes_ = &notes;
    refresh();
    ShowWindow(handle(), SW_SHOWNOACTIVATE);
    UpdateWindow(handle());
}

void MainWindow::update()
{
    if (waiting_ || !notes_) return;
    waiting_ = true;
    SetTimer(handle(), updateTimer, updateDelay, nullptr);
}

void MainWindow::showColumns(const View* view)
{
    removeColumns(documents_);
    int index = 0;
    if (view)
        for (const ItemName* name : view->sorted) addColumn(documents_, index++, name->spelling.c_str(), columnWidth);
    addColumn(documents_, index, L"Form", columnWidth);
}

void MainWindow::refresh()
{
    waiting_ = false;
    KillTimer(handle(), updateTimer);
    const Workspace& workspace = notes_->workspace();
    if (workspace.shownDatabase() != shownDatabase_ || workspace.shownView() != shownView_) {
        shownDatabase_ = workspace.shownDatabase();
        shownView_ = workspace.shownView();
        showColumns(shownView_);
    }
    const std::wstring place = !shownDatabase_ ? L"Workspace"
                               : shownView_    ? shownDatabase_->title + L" - " + shownView_->names[0]
                                               : shownDatabase_->title;
    SetWindowTextW(handle(), (place + L" - Lotus Notes").c_str());
    setRowCount(databases_, notes_->databases().size());
    setRowCount(variables_, notes_->environment().size());
    setRowCount(documents_, shownEntries().size());
    const std::size_t count = shownEntries().size();
    const std::wstring user = notes_->userName;
    SetWindowTextW(status_, (abbreviatedName(user) +
                             (shownView_ ? L"    " + std::to_wstring(count) + L" documents" : std::wstring()))
                                .c_str());
}

const std::vector<ViewIndex::Entry>& MainWindow::shownEntries() const
{
    static const std::vector<ViewIndex::Entry> none;
    return shownView_ ? shownDatabase_->index(*shownView_).entries() : none;
}

void MainWindow::fillDatabase(LVITEMW& row)
{
    if (!wantsText(row, notes_->databases().size())) return;
    const Database& database = *notes_->databases()[static_cast<std::size_t>(row.iItem)];
    if (row.iSubItem == 0) {
        const bool icon = notes_->workspace().hasIcon(database);
        cell_ = (icon ? L"\u25A0 " : L"") + (database.title.empty() ? database.filePath : database.title);
        if (!database.canBeOpened) cell_ += L" (closed)";
    } else {
        cell_ = row.iSubItem == 1 ? (database.server.empty() ? L"Local" : commonName(database.server))
                                  : std::to_wstring(database.notes().size());
    }
    row.pszText = cell_.data();
}

void MainWindow::fillVariable(LVITEMW& row)
{
    if (!wantsText(row, notes_->environment().size())) return;
    const auto variable = std::next(notes_->environment().begin(), row.iItem);
    cell_ = row.iSubItem == 0 ? variable->first : variable->second;
    row.pszText = cell_.data();
}

void MainWindow::fillDocument(LVITEMW& row)
{
    if (!wantsText(row, shownEntries().size())) return;
    const Note& note = *shownEntries()[static_cast<std::size_t>(row.iItem)].note;
    const auto column = static_cast<std::size_t>(row.iSubItem);
    cell_ = note.text(column < shownView_->sorted.size() ? *shownView_->sorted[column] : names::form);
    row.pszText = cell_.data();
}

LRESULT MainWindow::notified(NMHDR& header)
{
    if (header.code == LVN_GETDISPINFOW) {
        LVITEMW& row = reinterpret_cast<NMLVDISPINFOW&>(header).item;
        if (header.hwndFrom == databases_) fillDatabase(row);
        else if (header.hwndFrom == variables_) fillVariable(row);
        else if (header.hwndFrom == documents_) fillDocument(row);
    } else if (header.code == NM_CLICK && header.hwndFrom == databases_) {
        const auto row = static_cast<std::size_t>(reinterpret_cast<NMITEMACTIVATE&>(header).iItem);
        if (row < notes_->databases().size()) handlers_.chosen(SharedDatabase(notes_->databases()[row]));
    } else if (header.code == NM_DBLCLK && header.hwndFrom == documents_) {
        const auto row = static_cast<std::size_t>(reinterpret_cast<NMITEMACTIVATE&>(header).iItem);
        if (row < shownEntries().size()) handlers_.opened(shownDatabase_, SavedNote(shownEntries()[row].note));
    }
    return 0;
}

LRESULT MainWindow::onMessage(UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message) {
    case WM_NOTIFY: return notes_ ? notified(*reinterpret_cast<NMHDR*>(lParam)) : 0;
    case WM_TIMER: refresh(); return 0;
    case WM_ACTIVATE:
        if (LOWORD(wParam) != WA_INACTIVE) handlers_.activated();
        return handleByDefault(message, wParam, lParam);
    case WM_CLOSE: handlers_.closed(); return 0;
    default: return handleByDefault(message, wParam, lParam);
    }
}

}

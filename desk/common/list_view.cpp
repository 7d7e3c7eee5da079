#include "desk/common/list_view.h"

namespace desk {

namespace {

// The list view takes texts that it will not change as writable ones.
LVITEMW cell(int row, int column, const std::wstring& text)
{
    LVITEMW item{};
    item.mask = LVIF_TEXT;
    item.iItem = row;
    item.iSubItem = column;
    item.pszText = const_cast<wchar_t*>(text.c_str());
    return item;
}

}

HWND makeList(HWND parent, RECT place, DWORD style)
{
    const INITCOMMONCONTROLSEX controls{sizeof controls, ICC_LISTVIEW_CLASSES};
    InitCommonControlsEx(&controls);
    const DWORD always =
        WS_CHILD | WS_VISIBLE | WS_TABSTOP | LVS_REPORT | LVS_SINGLESEL | LVS_SHOWSELALWAYS | LVS_NOSORTHEADER;
    const HWND list = CreateWindowExW(WS_EX_CLIENTEDGE, WC_LISTVIEWW, L"", always | style, place.left, place.top,
                                      place.right, place.bottom, parent, nullptr, GetModuleHandleW(nullptr), nullptr);
    SendMessageW(list, LVM_SETEXTENDEDLISTVIEWSTYLE, 0, LVS_EX_FULLROWSELECT);
    return list;
}

void addColumn(HWND list, int index, const wchar_t* title, int width, int format)
{
    LVCOLUMNW column{};
    column.mask = LVCF_TEXT | LVCF_WIDTH | LVCF_FMT;
    column.fmt = format;
    column.cx = width;
    column.pszText = const_cast<wchar_t*>(title);
    SendMessageW(list, LVM_INSERTCOLUMNW, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&column));
}

void removeColumns(HWND list)
{
    while (SendMessageW(list, LVM_DELETECOLUMN, 0, 0)) {}
}

void addRow(HWND list, int row, const std::wstring& text)
{
    LVITEMW item = cell(row, 0, text);
    SendMessageW(list, LVM_INSERTITEMW, 0, reinterpret_cast<LPARAM>(&item));
}

void setCell(HWND list, int row, int column, const std::wstring& text)
{
    LVITEMW item = cell(row, column, text);
    SendMessageW(list, LVM_SETITEMW, 0, reinterpret_cast<LPARAM>(&item));
}

void setRowCount(HWND list, std::size_t count)
{
    SendMessageW(list, LVM_SETITEMCOUNT, count, LVSICF_NOSCROLL);
    InvalidateRect(list, nullptr, TRUE);
}

}

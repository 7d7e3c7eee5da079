// Lists with columns, as the partners' windows show them.
#pragma once

#include <windows.h>
#include <commctrl.h>

#include <string>

namespace desk {

// A list in report form that fills `place` (left, top, width, height) of its
// parent. With LVS_OWNERDATA its rows are asked for by LVN_GETDISPINFO.
HWND makeList(HWND parent, RECT place, DWORD style = 0);

void addColumn(HWND list, int index, const wchar_t* title, int width, int format = LVCFMT_LEFT);
void removeColumns(HWND list);
void addRow(HWND list, int row, const std::wstring& text);
void setCell(HWND list, int row, int column, const std::wstring& text);

// How many rows an owner-data list has; it is drawn anew.
void setRowCount(HWND list, std::size_t count);

}

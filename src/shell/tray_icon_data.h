// The shell's notification-icon record in its first and smallest layout, which
// every Windows understands. The headers' own record is larger.
#pragma once

#include <windows.h>

#include <cstddef>
#include <string>

namespace hublink {

struct TrayIconData {
    DWORD cbSize;
    HWND hWnd;
    UINT uID;
    UINT uFlags;
    UINT uCallbackMessage;
    HICON hIcon;
    char szTip[64];
};

static_assert(sizeof(TrayIconData) == 88, "the record's size is part of its layout");
static_assert(offsetof(TrayIconData, hWnd) == 4 && offsetof(TrayIconData, uID) == 8 &&
              offsetof(TrayIconData, uFlags) == 12 && offsetof(TrayIconData, uCallbackMessage) == 16 &&
              offsetof(TrayIconData, hIcon) == 20 && offsetof(TrayIconData, szTip) == 24);

// Builds the record. The tip fills its 64 characters: longer text is cut,
// shorter text padded with blanks.
TrayIconData FillTrayIconData(HWND window, UINT id, UINT flags, UINT callbackMessage, HICON icon,
                              const std::string& tip);

// Shell_NotifyIconA with that record. The result is the shell's.
bool notifyShell(DWORD message, TrayIconData& data);

}

// The shell's notification-icon record in its first and smallest layout, which
// every Windows understands. The headers' own record is larger.
#pragma once

#include <windows.h>
#include <shellapi.h>

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

static_assert(sizeof(TrayIconData) == NOTIFYICONDATAA_V1_SIZE, "the record's size is part of its layout");
static_assert(sizeof(void*) != 4 || sizeof(TrayIconData) == 88);
static_assert(offsetof(TrayIconData, hWnd) == offsetof(NOTIFYICONDATAA, hWnd) &&
              offsetof(TrayIconData, uID) == offsetof(NOTIFYICONDATAA, uID) &&
              offsetof(TrayIconData, uFlags) == offsetof(NOTIFYICONDATAA, uFlags) &&
              offsetof(TrayIconData, uCallbackMessage) == offsetof(NOTIFYICONDATAA, uCallbackMessage) &&
              offsetof(TrayIconData, hIcon) == offsetof(NOTIFYICONDATAA, hIcon) &&
              offsetof(TrayIconData, szTip) == offsetof(NOTIFYICONDATAA, szTip));

// Builds the record. The tip fills its 64 characters: longer text is cut,
// shorter text padded with blanks.
TrayIconData FillTrayIconData(HWND window, UINT id, UINT flags, UINT callbackMessage, HICON icon,
                              const std::string& tip);

// Shell_NotifyIconA with that record. The result is the shell's.
bool notifyShell(DWORD message, TrayIconData& data);

}

// What the form asks of the desktop.
#pragma once

#include "shell/tray_icon_data.h"

#include <windows.h>

#include <functional>
#include <string>

namespace hublink {

struct Desktop {
    std::wstring programFolder;                                                    // no trailing backslash
    std::function<int(const std::wstring& text, UINT flags)> messageBox;           // titled with the program's name
    std::function<void()> endProcess;                                              // at once, nothing else runs
    std::function<bool(DWORD message, TrayIconData& data)> notifyShell = hublink::notifyShell; // the notification area
};

}

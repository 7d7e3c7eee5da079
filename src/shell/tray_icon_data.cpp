#include "shell/tray_icon_data.h"

#include <shellapi.h>

#include <algorithm>
#include <iterator>

namespace hublink {

TrayIconData FillTrayIconData(HWND window, UINT id, UINT flags, UINT callbackMessage, HICON icon,
                              const std::string& tip)
{
    TrayIconData data{sizeof(TrayIconData), window, id, flags, callbackMessage, icon, {}};
    std::fill(std::begin(data.szTip), std::end(data.szTip), ' ');
    std::copy_n(tip.begin(), std::min(tip.size(), sizeof data.szTip), data.szTip);
    return data;
}

bool notifyShell(DWORD message, TrayIconData& data)
{
    return Shell_NotifyIconA(message, reinterpret_cast<NOTIFYICONDATAA*>(&data)) != FALSE;
}

}

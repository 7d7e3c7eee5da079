// The program's icon in the notification area.
#pragma once

#include "shell/tray_icon_data.h"

#include <windows.h>

namespace hublink {

struct Desktop;

class NotificationIcon {
public:
    // The icon's messages will go to `form`.
    NotificationIcon(const Desktop& desktop, HWND form) : desktop_(desktop), form_(form) {}
    ~NotificationIcon();
    NotificationIcon(const NotificationIcon&) = delete;
    NotificationIcon& operator=(const NotificationIcon&) = delete;

    void AddTrayIcon();

    // One of the supervision's ticks: offers the icon again that the shell has refused.
    void retryAdd();

    // Removes the icon. Any thread may call it.
    void remove() const;

    const TrayIconData& record() const { return record_; }

private:
    const Desktop& desktop_;
    const HWND form_;
    TrayIconData record_{}; // stays as AddTrayIcon has made it
    int attemptsLeft_ = 0;  // still to be made to the shell, unless the icon stands
};

}

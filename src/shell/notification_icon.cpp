#include "shell/notification_icon.h"

#include "shell/desktop.h"
#include "shell/form_window.h"

#include <shellapi.h>

namespace hublink {

using namespace std::string_literals;

namespace {

constexpr int ticksPerMinute = 60'000 / FormWindow::tickInterval;

}

NotificationIcon::~NotificationIcon()
{
    if (record_.cbSize) remove();
}

void NotificationIcon::AddTrayIcon()
{
    const auto icon = reinterpret_cast<HICON>(GetClassLongPtrW(form_, GCLP_HICON));
    record_ = FillTrayIconData(form_, 1, NIF_MESSAGE | NIF_ICON | NIF_TIP, WM_MOUSEMOVE, icon, "Orvel - Hublink\0"s);
    attemptsLeft_ = 1 + ticksPerMinute;
    retryAdd();
}

// The shell may refuse the icon while it is busy after the user has signed in, and
// does not say so reliably (vendor's reference of Shell_NotifyIcon, remarks of its
// users). The ticks of the first minute offer it again.
void NotificationIcon::retryAdd()
{
    if (attemptsLeft_ == 0) return;
    attemptsLeft_ = desktop_.notifyShell(NIM_ADD, record_) ? 0 : attemptsLeft_ - 1;
}

void NotificationIcon::remove() const
{
    TrayIconData record = record_;
    desktop_.notifyShell(NIM_DELETE, record);
}

}

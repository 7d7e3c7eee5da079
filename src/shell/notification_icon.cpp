#include "common/error_trap.h"
#include "shell/hublink.h"
#include "shell/resources.h"
#include "shell/screen_scale.h"

#include <shellapi.h>

namespace hublink {

using namespace std::string_literals;

namespace {

constexpr int ticksOfAMinute = 60'000 / FormWindow::tickInterval;

}

void Hublink::AddTrayIcon()
{
    const HICON icon = LoadIconW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(IDI_HUBLINK));
    trayIconData_ =
        FillTrayIconData(hWnd(), 1, NIF_MESSAGE | NIF_ICON | NIF_TIP, WM_MOUSEMOVE, icon, "Orvel - Hublink\0"s);
    iconOffers_ = 1 + ticksOfAMinute;
    offerTrayIcon();
}

// The shell may refuse the icon while it is busy after the user has signed in, and
// does not say so reliably (vendor's reference of Shell_NotifyIcon, remarks of its
// users). The ticks of the first minute offer it again.
void Hublink::offerTrayIcon()
{
    if (iconOffers_ == 0) return;
    iconOffers_ = desktop_.notifyShell(NIM_ADD, trayIconData_) ? 0 : iconOffers_ - 1;
}

void Hublink::Form_MouseMove(int, int, double X, double)
{
    // One question at a time, however often the icon is pressed.
    if (screenScale::pixelsFromTwips(X) != WM_RBUTTONDOWN || question_ != Question::none) return;
    question_ = Question::waits;
    // A question inside a call would hold it up; one that may never end is another matter.
    if (callWatch_.callIsLong()) return askWhetherToStop();
    trapErrors([this] { window_.outsideCalls([this] { askWhetherToStop(); }); },
               [this] { question_ = Question::none; });
}

void Hublink::askWhetherToStop()
{
    if (question_ != Question::waits) return;
    bool stop = false;
    question_ = Question::open;
    trapErrors([&] {
        SetForegroundWindow(hWnd()); // else the question would not get the focus
        stop = messageBox(L"Do you want to really stop Hublink ?", MB_YESNO | MB_ICONQUESTION | MB_DEFBUTTON2) == IDYES;
    });
    question_ = Question::none;
    if (stop) StopConnector();
}

}

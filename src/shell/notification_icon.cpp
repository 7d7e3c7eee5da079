#include "common/error_trap.h"
#include "shell/hublink.h"
#include "shell/resources.h"
#include "shell/screen_scale.h"

#include <shellapi.h>

using namespace std::string_literals;

void Hublink::AddTrayIcon()
{
    const HICON icon = LoadIconW(GetModuleHandleW(nullptr), MAKEINTRESOURCEW(IDI_HUBLINK));
    trayIconData_ = FillTrayIconData(hWnd(), 1, NIF_MESSAGE | NIF_ICON | NIF_TIP, WM_MOUSEMOVE, icon,
                                     "Orvel - Hublink\0"s);
    notifyShell(NIM_ADD, trayIconData_);
}

void Hublink::Form_MouseMove(int, int, double X, double)
{
    // One question at a time, however often the icon is pressed.
    if (screenScale::pixelsFromTwips(X) != WM_RBUTTONDOWN || asking_) return;
    asking_ = true;
    window_.outsideCalls([this] {
        askWhetherToStop();
        asking_ = false;
    });
}

void Hublink::askWhetherToStop()
{
    trapErrors(L"Form_MouseMove", [&] {
        SetForegroundWindow(hWnd()); // else the question would not get the focus
        const int answer = desktop_.messageBox(L"Do you want to really stop Hublink ?",
                                               MB_YESNO | MB_ICONQUESTION | MB_DEFBUTTON2);
        if (answer == IDYES) StopConnector();
    });
}

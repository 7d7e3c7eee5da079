// Wires the program together and runs its message loop.
#include "automation/apartment.h"
#include "automation/call_permission.h"
#include "automation/catch_all.h"
#include "automation/message_filter.h"
#include "automation/process_protection.h"
#include "automation/server/registration.h"
#include "shell/hublink.h"
#include "shell/single_instance.h"

#include <commctrl.h>

namespace hublink {

namespace {

Desktop realDesktop()
{
    const std::wstring program = automation::server::programPath();
    return {
        program.substr(0, program.rfind(L'\\')),
        [](const std::wstring& text, UINT flags) { return MessageBoxW(nullptr, text.c_str(), L"Hublink", flags); },
        [] { TerminateProcess(GetCurrentProcess(), 0); },
    };
}

int run()
{
    const SingleInstance instance;
    if (!instance.isFirst()) return 0;

    const automation::Apartment apartment;
    automation::permitCallsOfOwnUserOnly(automation::StartsServers::yes);
    InitCommonControls(); // else Windows XP shows no message box of the style that the manifest asks for
    Hublink form(realDesktop());
    const automation::BusyMessageFilter busyFilter([&] { form.window().dispatchStopMessages(); });
    form.Form_Load();

    MSG message;
    while (GetMessageW(&message, nullptr, 0, 0) > 0) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
    form.Form_Terminate();
    return 0;
}

}

}

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR, int)
{
    return automation::catchAll(1, [] {
        automation::protectProcess();
        return hublink::run();
    });
}

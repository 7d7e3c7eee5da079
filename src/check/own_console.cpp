#include "check/own_console.h"

#include "check/output.h"

#include <windows.h>

namespace hublink::check {

namespace {

bool isConsole(DWORD stream)
{
    const HANDLE handle = GetStdHandle(stream);
    DWORD mode = 0;
    return handle && handle != INVALID_HANDLE_VALUE && GetConsoleMode(handle, &mode);
}

// A service's desktop is shown to nobody.
bool isDesktopVisible()
{
    USEROBJECTFLAGS flags{};
    return GetUserObjectInformationW(GetProcessWindowStation(), UOI_FLAGS, &flags, sizeof flags, nullptr) &&
           (flags.dwFlags & WSF_VISIBLE) != 0;
}

bool isStartedHidden()
{
    STARTUPINFOW start{};
    start.cb = sizeof start;
    GetStartupInfoW(&start);
    return (start.dwFlags & STARTF_USESHOWWINDOW) != 0 && start.wShowWindow == SW_HIDE;
}

bool closesAtOnce()
{
    DWORD processes[2];
    return isConsole(STD_INPUT_HANDLE) && isConsole(STD_OUTPUT_HANDLE) && GetConsoleProcessList(processes, 2) == 1 &&
           GetConsoleWindow() && isDesktopVisible() && !isStartedHidden();
}

void waitForKey(HANDLE input)
{
    FlushConsoleInputBuffer(input);
    INPUT_RECORD record{};
    DWORD count = 0;
    while (ReadConsoleInputW(input, &record, 1, &count)) {
        // Alt, Shift, Control and the arrows give none: who switches windows or scrolls goes on reading.
        const bool isCharacter = record.EventType == KEY_EVENT && record.Event.KeyEvent.bKeyDown &&
                                 record.Event.KeyEvent.uChar.UnicodeChar != 0;
        if (isCharacter) return;
    }
}

}

void keepOwnConsoleOpen(const ReportTexts& texts)
{
    if (!closesAtOnce()) return;
    writeOutput(STD_OUTPUT_HANDLE, L"\r\n" + texts.pressKey().full);
    waitForKey(GetStdHandle(STD_INPUT_HANDLE));
}

}

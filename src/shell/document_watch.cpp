#include "shell/document_watch.h"

#include "common/error_trap.h"
#include "common/program_files.h"
#include "lotus/current_document.h"
#include "lotus/lotus_session.h"
#include "shell/process_lookup.h"

namespace hublink {

namespace {

struct Search {
    DWORD processId;
    bool isFound;
};

bool belongsTo(HWND window, DWORD processId)
{
    DWORD owner = 0;
    GetWindowThreadProcessId(window, &owner);
    return owner == processId;
}

BOOL CALLBACK checkChild(HWND window, LPARAM parameter) noexcept
{
    auto& search = *reinterpret_cast<Search*>(parameter);
    search.isFound = belongsTo(window, search.processId) && IsWindowVisible(window);
    return !search.isFound;
}

// Whether the window is the process's own or shows one of its windows: the
// frame of Notes 8 is the window of another program, in which the windows of
// nlnotes.exe lie (field report in the vendor's forum).
bool shows(HWND window, DWORD processId)
{
    // With no window in front it may be the desktop, in which all others lie.
    if (!window || window == GetDesktopWindow() || processId == 0) return false;
    Search search{processId, belongsTo(window, processId)};
    if (!search.isFound) EnumChildWindows(window, checkChild, reinterpret_cast<LPARAM>(&search));
    return search.isFound;
}

}

void DocumentWatch::TimerCallInlotus_Timer()
{
    trapErrors([&] {
        const HWND front = GetForegroundWindow();
        if (!session_.LotusReady) return;
        HANDLE process = nullptr;
        // A look-up of its own: the supervision's reports a restart of Notes to one caller only.
        if (notesProcessId_ == 0) ProcessLookup().GetProcessHandle(notesProgram, process, notesProcessId_);
        if (!shows(front, notesProcessId_)) return;
        UpdateCurrentDocumentNumber(session_);
    });
}

}

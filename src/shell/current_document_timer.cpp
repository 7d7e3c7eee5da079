#include "common/error_trap.h"
#include "lotus/current_document.h"
#include "shell/hublink.h"

namespace {

// 0 when no window is in front.
DWORD foregroundProcess()
{
    DWORD processId = 0;
    GetWindowThreadProcessId(GetForegroundWindow(), &processId);
    return processId;
}

}

void Hublink::TimerCallInlotus_Timer()
{
    trapErrors(L"TimerCallInlotus", [&] {
        const DWORD front = foregroundProcess();
        if (!lotus_.LotusReady) return;
        HANDLE process = nullptr;
        if (notesProcessId_ == 0) processes_.GetProcessHandle(L"nlnotes.exe", process, notesProcessId_);
        if (front == 0 || front != notesProcessId_) return;
        std::wstring lastName, firstName;
        UpdateCurrentDocumentNumber(lotus_, lastName, firstName);
    });
}

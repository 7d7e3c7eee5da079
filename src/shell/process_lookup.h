// Finds out whether a program runs in this user session, by its file name.
#pragma once

#include "automation/owners.h"

#include <windows.h>

#include <map>
#include <string>

namespace hublink {

class ProcessLookup {
public:
    ProcessLookup() = default;
    ProcessLookup(const ProcessLookup&) = delete;
    ProcessLookup& operator=(const ProcessLookup&) = delete;

    // Finds a running process by executable file name, without regard to case.
    // `handle` gets a handle and `processId` its identifier; both stay as they
    // are when no such process runs. Returns whether one was found.
    //
    // A process that was found is followed: when it has ended, the answer is once
    // "none", also while another of that name runs. Whoever asks at intervals thus
    // learns that what it holds of the old one is void. Then the next one is found,
    // of several the one that the system lists first.
    //
    // The handle belongs to the look-up, which keeps at most one a name and hands
    // it out again: callers ask at every tick and close nothing. A process that may
    // not be opened still runs: a pseudo handle stands for it, and its identifier
    // is all that distinguishes it from the next one.
    bool GetProcessHandle(const wchar_t* fileName, HANDLE& handle, DWORD& processId);

private:
    struct Known {
        automation::Handle handle;
        DWORD processId = 0;
    };

    static bool stillRuns(const wchar_t* fileName, const Known& known);
    static Known firstRunning(const wchar_t* fileName);

    std::map<std::wstring, Known> known_;
};

}

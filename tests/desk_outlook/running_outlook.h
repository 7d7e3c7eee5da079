// The real OUTLOOK.exe, copied to a folder of the test's own, registered there
// and ended with this object. One at a time on the machine; one that was
// registered before is registered again at the end.
#pragma once

#include "support/scratch_folder.h"

#include <windows.h>

#include <memory>
#include <string>
#include <string_view>

class Process {
public:
    // Throws std::runtime_error. stderr goes to the file, "" for nowhere.
    explicit Process(const std::wstring& commandLine, const std::wstring& errorFile = L"");
    ~Process();
    Process(const Process&) = delete;
    Process& operator=(const Process&) = delete;

    static constexpr DWORD stillRuns = STILL_ACTIVE;

    // Its exit code, waiting that many milliseconds at most.
    DWORD exitCode(DWORD milliseconds = 15'000) const;
    void kill() const { TerminateProcess(process_, 1); }

private:
    HANDLE process_ = nullptr;
};

class RunningOutlook {
public:
    // Starts it with that store file.
    explicit RunningOutlook(std::string_view store = {});
    ~RunningOutlook();
    RunningOutlook(const RunningOutlook&) = delete;
    RunningOutlook& operator=(const RunningOutlook&) = delete;

    std::wstring ask(std::wstring_view request) const;
    std::wstring program() const { return folder_.file(L"OUTLOOK.exe"); }
    std::wstring storeFile() const { return folder_.file(L"outlook.store.txt"); }
    const Process& process() const { return *process_; }

    // After it has ended: once more.
    void start();

private:
    const HANDLE oneAtATime_;
    std::wstring registeredBefore_; // its command line
    support::ScratchFolder folder_;
    std::unique_ptr<Process> process_;
};

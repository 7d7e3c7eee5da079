// A real partner program of the desk, copied to a folder of the test's own,
// registered there and ended with this object. One at a time of each on the
// machine; one that was registered before is registered again at the end.
#pragma once

#include "support/scratch_folder.h"

#include <windows.h>

#include <functional>
#include <memory>
#include <string>
#include <string_view>

namespace support {

class Process {
public:
    // Throws std::runtime_error. stderr goes to the file, "" for nowhere.
    explicit Process(const std::wstring& commandLine, const std::wstring& errorFile = L"");
    ~Process();
    Process(const Process&) = delete;
    Process& operator=(const Process&) = delete;

    static constexpr DWORD stillRuns = STILL_ACTIVE;

    // Its exit code, waiting that many milliseconds at most. Messages of the
    // calling thread are dispatched meanwhile: the program may call back.
    DWORD exitCode(DWORD milliseconds = 15'000) const;

    // Returns when it has gone.
    void kill() const;

private:
    HANDLE process_ = nullptr;
};

// Looks until the condition holds; false when it still does not in the end.
bool soon(const std::function<bool()>& condition, DWORD milliseconds = 5'000);

struct PartnerProgram {
    const wchar_t* file;     // "OUTLOOK.exe", beside the test
    const wchar_t* pipe;     // "outlook"; its store is outlook.store.txt
    const wchar_t* progId;   // of one of its classes
};

class RunningPartner {
public:
    // Starts it with that store file.
    explicit RunningPartner(const PartnerProgram& partner, std::string_view store = {});
    ~RunningPartner();
    RunningPartner(const RunningPartner&) = delete;
    RunningPartner& operator=(const RunningPartner&) = delete;

    std::wstring ask(std::wstring_view request) const;
    std::wstring program() const { return folder_.file(partner_.file); }
    std::wstring storeFile() const { return folder_.file(partner_.pipe + std::wstring(L".store.txt")); }
    const Process& process() const { return *process_; }

    // After it has ended: once more.
    void start();

private:
    const PartnerProgram partner_;
    const HANDLE oneAtATime_;
    std::wstring registeredBefore_; // its command line
    ScratchFolder folder_;
    std::unique_ptr<Process> process_;
};

}

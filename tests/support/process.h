// Programs that a test starts.
#pragma once

#include "automation/owners.h"

#include <windows.h>

#include <functional>
#include <string>

namespace support {

class Process {
public:
    // Its standard output and error go to the file, "" for nowhere. Throws
    // AutomationError when it cannot be started.
    explicit Process(std::wstring commandLine, const std::wstring& outputFile = L"", const wchar_t* folder = nullptr);
    ~Process(); // kills what still runs
    Process(const Process&) = delete;
    Process& operator=(const Process&) = delete;

    DWORD id() const noexcept { return id_; }

    static constexpr DWORD stillRuns = STILL_ACTIVE;

    // Waits that many milliseconds at most. Messages of the calling thread are
    // dispatched meanwhile: the program may call back.
    DWORD exitCode(DWORD milliseconds = 20'000) const;

    // Returns when it has gone.
    void kill() const;

private:
    automation::Handle handle_;
    DWORD id_ = 0;
};

// The path of what stands beside the test programs.
std::wstring pathBesideTests(const std::wstring& name);

// The same as the first word of a command line.
std::wstring command(const std::wstring& name);

// Looks until the condition holds; false when it still does not in the end.
// Messages of the calling thread are dispatched meanwhile.
bool eventually(const std::function<bool()>& condition, DWORD milliseconds = 10'000);

}

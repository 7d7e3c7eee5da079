// The real softphone program, registered and running for the length of a test.
#pragma once

#include <windows.h>

#include <functional>
#include <memory>
#include <string>

namespace testing_desk {

// A started process; its handle is closed with this.
class Process {
public:
    // Throws std::runtime_error.
    explicit Process(const std::wstring& commandLine);
    ~Process();
    Process(const Process&) = delete;
    Process& operator=(const Process&) = delete;

    // Its exit code; 0xFFFFFFFF when it still runs after that time. Messages
    // of the calling thread are dispatched meanwhile.
    DWORD exitCode(DWORD milliseconds = 15'000) const;
    void kill() const;

private:
    HANDLE process_ = nullptr;
};

// Copies pavex.exe to a folder of its own, so that the test has its own store
// file, and registers and starts it there; a softphone registered before is
// registered again at the end. One at a time on the machine.
class RunningSoftphone {
public:
    RunningSoftphone();
    ~RunningSoftphone();
    RunningSoftphone(const RunningSoftphone&) = delete;
    RunningSoftphone& operator=(const RunningSoftphone&) = delete;

    void start();
    // Whether it still runs: a request is answered.
    bool alive() const;
    const Process& process() const { return *process_; }
    std::wstring storeText() const;

private:
    std::wstring programPath() const { return folder_ + L"\\pavex.exe"; }

    HANDLE oneAtATime_ = nullptr;
    std::wstring folder_;
    std::wstring registeredBefore_; // its command line
    std::unique_ptr<Process> process_;
};

// Dispatches messages until `done` or the time is over; returns done().
bool waitFor(const std::function<bool()>& done, DWORD milliseconds = 10'000);

std::wstring testFolder();

}

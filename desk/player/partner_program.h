// A partner as an installed program: its file, its store, its control pipe.
#pragma once

#include "desk/common/control_pipe.h"
#include "desk/player/windows_files.h"

#include <functional>
#include <string>
#include <string_view>

namespace desk::player {

class PartnerProgram {
public:
    // The program's file and the name of its control pipe and store.
    PartnerProgram(const wchar_t* file, const wchar_t* name) noexcept : file_(file), name_(name) {}

    // Copies it from beside the running program and lets it register itself; it
    // has nothing yet.
    void install() const;

    // Ends it, and lets it withdraw its registration.
    void uninstall();

    // Starts it and waits until it is there; with `records` as all that it has.
    void start();
    void start(std::string_view records);

    // It ends, and its next process is there before it has.
    void restart();

    // As its user closes it. Throws std::runtime_error when it stays.
    void close();

    // Ends it whatever state it is in; nothing when it does not run.
    void end();

    // A request to its control pipe; an "error:" response throws.
    std::wstring ask(std::wstring_view request, DWORD timeout = usualTimeout) const;

    // Waits for a window whose title begins so (or is exactly so); false when none opens.
    bool shows(const std::wstring& title, bool exactly = true) const;

    Process& process() noexcept { return process_; }

private:
    void runWith(const wchar_t* argument) const;
    std::wstring path() const;
    std::wstring storePath() const;
    void waitUntilServing();

    const wchar_t* file_;
    const wchar_t* name_;
    Process process_;
};

// Where the partners are installed.
inline constexpr const wchar_t* partnersFolder = L"C:\\Desk";

}

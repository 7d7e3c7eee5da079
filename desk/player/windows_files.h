// Files, processes and the registry as the player needs them. Everything
// throws std::runtime_error with a line that says what could not be done.
#pragma once

#include "automation/owners.h"

#include <windows.h>

#include <string>
#include <string_view>

namespace desk::player {

// The folder of the running program, without a trailing backslash.
std::wstring ownFolder();

void makeFolder(const std::wstring& folder); // and those above it

// Leaves a copy that is the same already alone: a program that still runs
// cannot be overwritten.
void copyFile(const std::wstring& from, const std::wstring& to);
void copyFolder(const std::wstring& from, const std::wstring& to); // files only, not what lies deeper
void writeFile(const std::wstring& file, std::string_view bytes);
std::string readFile(const std::wstring& file);
void removeFile(const std::wstring& file); // silent when it is not there

// Values in the 32-bit view; the key is made when it is missing.
void setRegistryText(HKEY root, const wchar_t* key, const wchar_t* name, const std::wstring& value);

// A process on the desk. It is left running when this ends.
class Process {
public:
    Process() noexcept = default;

    // Starts `program` with `arguments`, its folder as the current one.
    Process(const std::wstring& program, const std::wstring& arguments);

    // The same; it has its identifier, and does nothing before resume().
    static Process suspended(const std::wstring& program, const std::wstring& arguments);
    void resume();

    // One that somebody else started.
    static Process existing(DWORD id);

    explicit operator bool() const noexcept { return static_cast<bool>(handle_); }
    HANDLE handle() const noexcept { return handle_.get(); }
    DWORD id() const noexcept { return id_; }

    bool running() const;

    // Waits for the end; false when it has not come after `milliseconds`.
    bool ended(DWORD milliseconds) const;
    DWORD exitCode() const;

    // Sudden death, as of a crash.
    void kill();

private:
    Process(const std::wstring& program, const std::wstring& arguments, DWORD flags);

    automation::Handle handle_;
    automation::Handle thread_; // until it is resumed
    DWORD id_ = 0;
};

}

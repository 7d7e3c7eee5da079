// The store's file as Windows sees it. Every failure throws StoreError.
#pragma once

#include "automation/owners.h"
#include "convid/log_entry.h"

#include <windows.h>

#include <string>
#include <utility>

namespace convid {

class LogFile {
public:
    // Opens the file for this process alone to write; others may read and copy
    // it. `disposition` is CreateFile's (OPEN_ALWAYS, CREATE_ALWAYS). A file in
    // use elsewhere is tried again for `patience` milliseconds: virus scanners
    // and backups hold files for a moment.
    LogFile(std::wstring path, DWORD disposition, DWORD patience);

    // Opens the file, if it is there, to be read and in nobody's way: meanwhile others
    // may write, replace and remove it.
    static LogFile toRead(std::wstring path, DWORD patience);

    std::uint64_t size() const;

    // Fills `target` from `offset` on; returns how much there was.
    std::size_t read(std::uint64_t offset, std::span<std::uint8_t> target) const;

    // Writes at `offset`, all of it or a failure; what a failure leaves
    // half-written is the caller's to cut off.
    void write(std::uint64_t offset, ByteView bytes);

    // The file ends at `size` from now on.
    void cut(std::uint64_t size);

    // Returns when everything written has reached the disk.
    void flush();

private:
    LogFile(std::wstring path, automation::Handle handle) : path_(std::move(path)), handle_(std::move(handle)) {}

    void seek(std::uint64_t offset) const;
    [[noreturn]] void fail(const wchar_t* operation) const;

    std::wstring path_;
    automation::Handle handle_;
};

// Another program uses the file.
inline bool isInUse(DWORD code)
{
    return code == ERROR_SHARING_VIOLATION || code == ERROR_LOCK_VIOLATION;
}

// Runs `attempt`, which returns a Windows error code, again and again as long
// as that is a passing one, and no longer than `patience` milliseconds.
template <class IsPassing, class Attempt>
DWORD retryWhile(IsPassing isPassing, DWORD patience, Attempt attempt)
{
    const DWORD start = GetTickCount();
    for (;;) {
        const DWORD result = attempt();
        if (!isPassing(result) || GetTickCount() - start >= patience) return result;
        Sleep(20);
    }
}

}

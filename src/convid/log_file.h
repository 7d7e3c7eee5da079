// The store's file as Windows sees it. Every failure throws StoreError.
#pragma once

#include "automation/milliseconds.h"
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
    // use elsewhere is tried again for `timeout` milliseconds: virus scanners
    // and backups hold files for a moment.
    LogFile(std::wstring path, DWORD disposition, automation::Milliseconds timeout);

    // Opens the file, if it is there, to be read and in nobody's way: meanwhile others
    // may write, replace and remove it.
    static LogFile openForReading(std::wstring path, automation::Milliseconds timeout);

    std::uint64_t size() const;

    // Fills `target` from `offset` on; returns how much there was.
    std::size_t read(std::uint64_t offset, std::span<std::uint8_t> target) const;

    // Writes at `offset`, all of it or a failure; what a failure leaves
    // half-written is the caller's to cut off.
    void write(std::uint64_t offset, ByteView bytes);

    // The file ends at `size` from now on.
    void truncate(std::uint64_t size);

    // Returns when everything written has reached the disk.
    void flush();

private:
    LogFile(std::wstring path, automation::Handle handle) : path_(std::move(path)), handle_(std::move(handle)) {}

    void seek(std::uint64_t offset) const;
    [[noreturn]] void fail(const wchar_t* operation) const;

    std::wstring path_;
    automation::Handle handle_;
};

}

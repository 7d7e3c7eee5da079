// Folders, files and records for the tests of the identifier map.
#pragma once

#include "convid/identifier_store.h"

#include <map>
#include <string>
#include <utility>
#include <vector>

namespace convid_tests {

// A fresh folder, removed with everything in it.
class TemporaryFolder {
public:
    TemporaryFolder();
    ~TemporaryFolder();
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;

    std::wstring file(const std::wstring& name) const { return path_ + L"\\" + name; }
    std::vector<std::wstring> files() const; // names, sorted
    void clear() const;

private:
    std::wstring path_;
};

std::vector<std::uint8_t> contents(const std::wstring& path);
void writeContents(const std::wstring& path, const std::vector<std::uint8_t>& bytes);
bool fileExists(const std::wstring& path);

// The path of what stands beside this test program.
std::wstring besideThisProgram(const std::wstring& name);

// A started program and its input and output; killed with this object.
class Process {
public:
    explicit Process(const std::wstring& commandLine, HANDLE output = nullptr);
    ~Process();
    Process(const Process&) = delete;
    Process& operator=(const Process&) = delete;

    void kill();                             // at once, and waits until it is gone
    DWORD exitCode(DWORD patience = 20'000); // waits for the end; STILL_ACTIVE when it does not come
    bool runs() const;
    DWORD id() const { return information_.dwProcessId; }

private:
    PROCESS_INFORMATION information_{};
};

using Key = std::pair<std::wstring, std::int32_t>;
using Records = std::map<Key, convid::IdentifierRecord>;

convid::IdentifierRecord record(const std::wstring& idOrvel, const std::wstring& idAppli, std::int32_t typApplication,
                                std::int32_t collection);

// Everything that the store tells, of both collections.
Records everything(convid::IdentifierStore& store);

// Short of the store's own patience, for openings that are meant to fail.
inline constexpr convid::StoreOptions impatient{.compactionFloor = 1'000, .patience = 50};

}

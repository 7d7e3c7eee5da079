#include "store_files.h"

#include "automation/server/registration.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace convid_tests {

TemporaryFolder::TemporaryFolder()
{
    wchar_t temporary[MAX_PATH];
    GetTempPathW(MAX_PATH, temporary);
    static int number = 0;
    path_ = std::wstring(temporary) + L"convid-" + std::to_wstring(GetCurrentProcessId()) + L"-" +
            std::to_wstring(++number);
    CreateDirectoryW(path_.c_str(), nullptr);
}

TemporaryFolder::~TemporaryFolder()
{
    clear();
    RemoveDirectoryW(path_.c_str());
}

std::vector<std::wstring> TemporaryFolder::files() const
{
    std::vector<std::wstring> names;
    WIN32_FIND_DATAW found;
    const HANDLE search = FindFirstFileW((path_ + L"\\*").c_str(), &found);
    if (search == INVALID_HANDLE_VALUE) return names;
    do {
        const std::wstring name = found.cFileName;
        if (name != L"." && name != L"..") names.push_back(name);
    } while (FindNextFileW(search, &found));
    FindClose(search);
    std::sort(names.begin(), names.end());
    return names;
}

void TemporaryFolder::clear() const
{
    for (const std::wstring& name : files()) {
        SetFileAttributesW(file(name).c_str(), FILE_ATTRIBUTE_NORMAL);
        if (!DeleteFileW(file(name).c_str())) RemoveDirectoryW(file(name).c_str());
    }
}

std::vector<std::uint8_t> contents(const std::wstring& path)
{
    const HANDLE file =
        CreateFileW(path.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_EXISTING, 0, nullptr);
    EXPECT_NE(file, INVALID_HANDLE_VALUE) << "cannot be read: error " << GetLastError();
    if (file == INVALID_HANDLE_VALUE) return {};
    std::vector<std::uint8_t> bytes(GetFileSize(file, nullptr));
    DWORD count = 0;
    ReadFile(file, bytes.data(), static_cast<DWORD>(bytes.size()), &count, nullptr);
    CloseHandle(file);
    EXPECT_EQ(count, bytes.size());
    return bytes;
}

void writeContents(const std::wstring& path, const std::vector<std::uint8_t>& bytes)
{
    const HANDLE file = CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
    ASSERT_NE(file, INVALID_HANDLE_VALUE) << "cannot be written: error " << GetLastError();
    DWORD count = 0;
    WriteFile(file, bytes.data(), static_cast<DWORD>(bytes.size()), &count, nullptr);
    CloseHandle(file);
    ASSERT_EQ(count, bytes.size());
}

bool fileExists(const std::wstring& path)
{
    return GetFileAttributesW(path.c_str()) != INVALID_FILE_ATTRIBUTES;
}

std::wstring besideThisProgram(const std::wstring& name)
{
    const std::wstring program = automation::server::programPath();
    return program.substr(0, program.find_last_of(L'\\') + 1) + name;
}

Process::Process(const std::wstring& commandLine, HANDLE output)
{
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    if (output) {
        startup.dwFlags = STARTF_USESTDHANDLES;
        startup.hStdOutput = output;
        startup.hStdError = output;
    }
    std::wstring line = commandLine;
    const BOOL started = CreateProcessW(nullptr, line.data(), nullptr, nullptr, output != nullptr, 0, nullptr, nullptr,
                                        &startup, &information_);
    EXPECT_TRUE(started) << "cannot be started: error " << GetLastError();
}

Process::~Process()
{
    if (runs()) kill();
    CloseHandle(information_.hThread);
    CloseHandle(information_.hProcess);
}

void Process::kill()
{
    TerminateProcess(information_.hProcess, 9);
    WaitForSingleObject(information_.hProcess, 5'000);
}

DWORD Process::exitCode(DWORD patience)
{
    WaitForSingleObject(information_.hProcess, patience);
    DWORD code = STILL_ACTIVE;
    GetExitCodeProcess(information_.hProcess, &code);
    return code;
}

bool Process::runs() const
{
    return WaitForSingleObject(information_.hProcess, 0) == WAIT_TIMEOUT;
}

convid::IdentifierRecord record(const std::wstring& idOrvel, const std::wstring& idAppli, std::int32_t typApplication,
                                std::int32_t collection)
{
    return {.idOrvel = idOrvel, .idAppli = idAppli, .typApplication = typApplication, .collection = collection};
}

Records everything(convid::IdentifierStore& store)
{
    Records result;
    for (const std::int32_t collection : {0, 1})
        for (const auto& found : store.records(collection)) {
            EXPECT_EQ(found->collection, collection);
            const bool fresh = result.emplace(Key{found->idOrvel, found->typApplication}, *found).second;
            EXPECT_TRUE(fresh) << "told twice";
        }
    return result;
}

}

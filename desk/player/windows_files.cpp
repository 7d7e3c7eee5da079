#include "desk/player/windows_files.h"

#include "automation/owners.h"
#include "automation/server/registration.h"
#include "automation/text.h"

#include <shlobj.h>

#include <stdexcept>
#include <utility>

namespace desk::player {

using automation::Handle;
using automation::ownedIfValid;

namespace {

[[noreturn]] void fail(const char* what, const std::wstring& name)
{
    throw std::runtime_error(std::string(what) + " " + automation::toAnsi(name) + ": error " +
                             std::to_string(GetLastError()));
}

}

std::wstring ownFolder()
{
    const std::wstring program = automation::server::programPath();
    return program.substr(0, program.rfind(L'\\'));
}

void makeFolder(const std::wstring& folder)
{
    const int result = SHCreateDirectoryExW(nullptr, folder.c_str(), nullptr);
    if (result != ERROR_SUCCESS && result != ERROR_ALREADY_EXISTS && result != ERROR_FILE_EXISTS)
        fail("cannot make the folder", folder);
}

void copyFile(const std::wstring& from, const std::wstring& to)
{
    if (GetFileAttributesW(to.c_str()) != INVALID_FILE_ATTRIBUTES && readFile(to) == readFile(from)) return;
    if (!CopyFileW(from.c_str(), to.c_str(), FALSE)) fail("cannot copy", from);
}

void copyFolder(const std::wstring& from, const std::wstring& to)
{
    makeFolder(to);
    WIN32_FIND_DATAW entry;
    const auto search = ownedIfValid<automation::FileSearch>(FindFirstFileW((from + L"\\*").c_str(), &entry));
    if (!search) fail("cannot read the folder", from);
    do {
        if (!(entry.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY))
            copyFile(from + L"\\" + entry.cFileName, to + L"\\" + entry.cFileName);
    } while (FindNextFileW(search.get(), &entry));
}

void writeFile(const std::wstring& file, std::string_view bytes)
{
    const Handle opened = ownedIfValid(CreateFileW(file.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr));
    DWORD written = 0;
    if (!opened || !WriteFile(opened.get(), bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr) ||
        written != bytes.size())
        fail("cannot write", file);
}

std::string readFile(const std::wstring& file)
{
    const Handle opened =
        ownedIfValid(CreateFileW(file.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                                 nullptr, OPEN_EXISTING, 0, nullptr));
    if (!opened) fail("cannot read", file);
    std::string bytes(GetFileSize(opened.get(), nullptr), '\0');
    DWORD read = 0;
    if (!ReadFile(opened.get(), bytes.data(), static_cast<DWORD>(bytes.size()), &read, nullptr))
        fail("cannot read", file);
    bytes.resize(read);
    return bytes;
}

void removeFile(const std::wstring& file)
{
    if (!DeleteFileW(file.c_str()) && GetLastError() != ERROR_FILE_NOT_FOUND && GetLastError() != ERROR_PATH_NOT_FOUND)
        fail("cannot remove", file);
}

void setRegistryText(HKEY root, const wchar_t* key, const wchar_t* name, const std::wstring& value)
{
    HKEY opened = nullptr;
    if (RegCreateKeyExW(root, key, 0, nullptr, 0, KEY_WRITE, nullptr, &opened, nullptr) != ERROR_SUCCESS)
        fail("cannot open the registry key", key);
    const automation::RegistryKey owned(opened);
    const LSTATUS result = RegSetValueExW(owned.get(), name, 0, REG_SZ, reinterpret_cast<const BYTE*>(value.c_str()),
                                          static_cast<DWORD>((value.size() + 1) * sizeof(wchar_t)));
    if (result != ERROR_SUCCESS) fail("cannot write the registry key", key);
}

Process::Process(const std::wstring& program, const std::wstring& arguments) : Process(program, arguments, 0)
{
    thread_.reset();
}

Process Process::suspended(const std::wstring& program, const std::wstring& arguments)
{
    return Process(program, arguments, CREATE_SUSPENDED);
}

void Process::resume()
{
    ResumeThread(thread_.get());
    thread_.reset();
}

Process Process::existing(DWORD id)
{
    Process process;
    process.handle_.reset(OpenProcess(PROCESS_TERMINATE | PROCESS_QUERY_INFORMATION | SYNCHRONIZE, FALSE, id));
    if (!process.handle_) fail("cannot find", L"process " + std::to_wstring(id));
    process.id_ = id;
    return process;
}

Process::Process(const std::wstring& program, const std::wstring& arguments, DWORD flags)
{
    std::wstring command = L"\"" + program + L"\" " + arguments;
    const std::wstring folder = program.substr(0, program.rfind(L'\\'));
    STARTUPINFOW start{};
    start.cb = sizeof start;
    PROCESS_INFORMATION process{};
    if (!CreateProcessW(program.c_str(), command.data(), nullptr, nullptr, FALSE, flags, nullptr, folder.c_str(),
                        &start, &process))
        fail("cannot start", program);
    handle_.reset(process.hProcess);
    thread_.reset(process.hThread);
    id_ = process.dwProcessId;
}

bool Process::running() const
{
    return handle_ && !ended(0);
}

bool Process::ended(DWORD milliseconds) const
{
    return WaitForSingleObject(handle_.get(), milliseconds) == WAIT_OBJECT_0;
}

DWORD Process::exitCode() const
{
    DWORD code = STILL_ACTIVE;
    GetExitCodeProcess(handle_.get(), &code);
    return code;
}

void Process::kill()
{
    TerminateProcess(handle_.get(), 9);
    ended(5000);
}

}

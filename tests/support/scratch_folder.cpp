#include "support/scratch_folder.h"

#include "automation/error.h"
#include "automation/text.h"

#include <windows.h>

#include <algorithm>

namespace support {

namespace {

void removeFolder(const std::wstring& folder)
{
    WIN32_FIND_DATAW entry;
    const HANDLE search = FindFirstFileW((folder + L"\\*").c_str(), &entry);
    if (search == INVALID_HANDLE_VALUE) return;
    do {
        const std::wstring name = entry.cFileName;
        if (name == L"." || name == L"..") continue;
        const std::wstring path = folder + L"\\" + name;
        SetFileAttributesW(path.c_str(), FILE_ATTRIBUTE_NORMAL);
        if (entry.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) removeFolder(path);
        else DeleteFileW(path.c_str());
    } while (FindNextFileW(search, &entry));
    FindClose(search);
    RemoveDirectoryW(folder.c_str());
}

[[noreturn]] void fail(const wchar_t* operation)
{
    throw automation::AutomationError(operation, HRESULT_FROM_WIN32(GetLastError()));
}

}

ScratchFolder::ScratchFolder()
{
    wchar_t temporary[MAX_PATH];
    GetTempPathW(MAX_PATH, temporary);
    path_ = std::wstring(temporary) + L"hublink-test-" + std::to_wstring(GetCurrentProcessId());
    static int made = 0;
    path_ += L"-" + std::to_wstring(++made);
    removeFolder(path_);
    if (!CreateDirectoryW(path_.c_str(), nullptr)) fail(L"CreateDirectory");
}

ScratchFolder::~ScratchFolder()
{
    removeFolder(path_);
}

std::wstring ScratchFolder::folder(std::wstring_view name) const
{
    const std::wstring path = file(name);
    if (!CreateDirectoryW(path.c_str(), nullptr)) fail(L"CreateDirectory");
    return path;
}

std::wstring ScratchFolder::write(std::wstring_view name, std::string_view content) const
{
    writeFile(file(name), content);
    return file(name);
}

void writeFile(const std::wstring& path, std::string_view content)
{
    const HANDLE file = CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr);
    if (file == INVALID_HANDLE_VALUE) fail(L"CreateFile");
    DWORD written = 0;
    const BOOL done = WriteFile(file, content.data(), static_cast<DWORD>(content.size()), &written, nullptr);
    CloseHandle(file);
    if (!done) fail(L"WriteFile");
}

std::string readFile(const std::wstring& path)
{
    std::string content;
    const HANDLE file = CreateFileW(path.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                                    nullptr, OPEN_EXISTING, 0, nullptr);
    if (file == INVALID_HANDLE_VALUE) return content;
    content.resize(GetFileSize(file, nullptr));
    DWORD got = 0;
    if (!ReadFile(file, content.data(), static_cast<DWORD>(content.size()), &got, nullptr)) got = 0;
    content.resize(got);
    CloseHandle(file);
    return content;
}

std::string utf16File(std::wstring_view text)
{
    return "\xFF\xFE" + std::string(reinterpret_cast<const char*>(text.data()), text.size() * sizeof(wchar_t));
}

std::wstring projectFile(std::wstring_view path)
{
    // The build machine's root is drive Z: to the test.
    std::wstring full = L"Z:" + automation::wide(PROJECT_FOLDER) + L"/" + std::wstring(path);
    std::replace(full.begin(), full.end(), L'/', L'\\');
    return full;
}

}

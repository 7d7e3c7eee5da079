#include "support/scratch_folder.h"

#include "automation/error.h"
#include "automation/owners.h"
#include "automation/text.h"

#include <windows.h>

#include <algorithm>

namespace support {

using automation::Handle;
using automation::ownedIfValid;

namespace {

// What lies in a folder, itself and the one above it left out.
std::vector<WIN32_FIND_DATAW> entriesOf(const std::wstring& folder)
{
    std::vector<WIN32_FIND_DATAW> found;
    WIN32_FIND_DATAW entry;
    const auto search =
        automation::ownedIfValid<automation::FileSearch>(FindFirstFileW((folder + L"\\*").c_str(), &entry));
    if (!search) return found;
    do {
        const std::wstring_view name = entry.cFileName;
        if (name != L"." && name != L"..") found.push_back(entry);
    } while (FindNextFileW(search.get(), &entry));
    return found;
}

void clearFolder(const std::wstring& folder)
{
    for (const WIN32_FIND_DATAW& entry : entriesOf(folder)) {
        const std::wstring path = folder + L"\\" + entry.cFileName;
        SetFileAttributesW(path.c_str(), FILE_ATTRIBUTE_NORMAL);
        if (entry.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) {
            clearFolder(path);
            RemoveDirectoryW(path.c_str());
        } else {
            DeleteFileW(path.c_str());
        }
    }
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
    clear();
    RemoveDirectoryW(path_.c_str());
    if (!CreateDirectoryW(path_.c_str(), nullptr)) fail(L"CreateDirectory");
}

ScratchFolder::~ScratchFolder()
{
    clear();
    RemoveDirectoryW(path_.c_str());
}

std::vector<std::wstring> ScratchFolder::files() const
{
    std::vector<std::wstring> names;
    for (const WIN32_FIND_DATAW& entry : entriesOf(path_)) names.emplace_back(entry.cFileName);
    std::sort(names.begin(), names.end());
    return names;
}

void ScratchFolder::clear() const
{
    clearFolder(path_);
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
    const Handle file = ownedIfValid(CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS, 0, nullptr));
    if (!file) fail(L"CreateFile");
    DWORD written = 0;
    if (!WriteFile(file.get(), content.data(), static_cast<DWORD>(content.size()), &written, nullptr) ||
        written != content.size())
        fail(L"WriteFile");
}

std::string readFile(const std::wstring& path)
{
    const Handle file =
        ownedIfValid(CreateFileW(path.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                                 nullptr, OPEN_EXISTING, 0, nullptr));
    if (!file) return "";
    std::string content(GetFileSize(file.get(), nullptr), '\0');
    DWORD got = 0;
    if (!ReadFile(file.get(), content.data(), static_cast<DWORD>(content.size()), &got, nullptr)) got = 0;
    content.resize(got);
    return content;
}

std::string utf16File(std::wstring_view text)
{
    return "\xFF\xFE" + std::string(reinterpret_cast<const char*>(text.data()), text.size() * sizeof(wchar_t));
}

std::wstring projectFile(std::wstring_view path)
{
    // The build machine's root is drive Z: to the test.
    std::wstring full = L"Z:" + automation::toWide(PROJECT_FOLDER) + L"/" + std::wstring(path);
    std::replace(full.begin(), full.end(), L'/', L'\\');
    return full;
}

}

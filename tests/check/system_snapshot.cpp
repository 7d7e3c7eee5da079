#include "system_snapshot.h"

#include "automation/owners.h"

#include <windows.h>
#include <tlhelp32.h>

#include <set>

namespace hublink::check {

namespace {

void appendKeys(HKEY root, const std::wstring& name, std::wstring& text)
{
    HKEY opened = nullptr;
    if (RegOpenKeyExW(root, name.c_str(), 0, KEY_READ, &opened) != ERROR_SUCCESS) return;
    const automation::RegistryKey key(opened);
    for (DWORD index = 0;; ++index) {
        wchar_t child[256];
        DWORD length = 256;
        FILETIME changed;
        if (RegEnumKeyExW(opened, index, child, &length, nullptr, nullptr, nullptr, &changed) != ERROR_SUCCESS) return;
        const std::wstring path = name.empty() ? child : name + L"\\" + child;
        text += path + L"|" + std::to_wstring(changed.dwHighDateTime) + L"|" + std::to_wstring(changed.dwLowDateTime);
        text += L'\n';
        appendKeys(root, path, text);
    }
}

}

std::wstring registryText(void* root, const std::wstring& key)
{
    std::wstring text;
    appendKeys(static_cast<HKEY>(root), key, text);
    return text;
}

std::wstring folderText(const std::wstring& folder)
{
    std::wstring text;
    WIN32_FIND_DATAW found;
    const auto search =
        automation::ownedIfValid<automation::FileSearch>(FindFirstFileW((folder + L"\\*").c_str(), &found));
    for (bool more = static_cast<bool>(search); more; more = FindNextFileW(search.get(), &found) != FALSE) {
        const std::wstring name = found.cFileName;
        if (name == L"." || name == L"..") continue;
        const FILETIME& time = found.ftLastWriteTime;
        text += folder + L"\\" + name + L"|" + std::to_wstring(found.nFileSizeLow) + L"|" +
                std::to_wstring(time.dwHighDateTime) + L"|" + std::to_wstring(time.dwLowDateTime) + L"\n";
        if (found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) text += folderText(folder + L"\\" + name);
    }
    return text;
}

std::wstring programsText()
{
    std::multiset<std::wstring> names;
    const automation::Handle snapshot = automation::ownedIfValid(CreateToolhelp32Snapshot(TH32CS_SNAPPROCESS, 0));
    PROCESSENTRY32W entry{};
    entry.dwSize = sizeof entry;
    for (BOOL more = Process32FirstW(snapshot.get(), &entry); more; more = Process32NextW(snapshot.get(), &entry))
        names.insert(entry.szExeFile);
    std::wstring text;
    for (const std::wstring& name : names) text += name + L"\n";
    return text;
}

}

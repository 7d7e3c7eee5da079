#include "common/ini_file.h"

#include "automation/text.h"

#include <windows.h>

#include <string_view>

IniFile::IniFile(const std::wstring& path) : path_(automation::ansi(path)) {}

std::wstring IniFile::read(const char* section, const char* key, const char* fallback) const
{
    char buffer[1024];
    const DWORD length = GetPrivateProfileStringA(section, key, fallback, buffer, sizeof buffer, path_.c_str());
    return automation::wide({buffer, length});
}

bool IniFile::readSwitch(const char* section, const char* key, const char* fallback) const
{
    return read(section, key, fallback) == L"true";
}

std::vector<std::wstring> IniFile::sections() const
{
    // Each name ends with a NUL, the list with one more; a cut list fills the buffer but for two.
    std::vector<char> buffer(4096);
    while (GetPrivateProfileSectionNamesA(buffer.data(), static_cast<DWORD>(buffer.size()), path_.c_str()) ==
           buffer.size() - 2)
        buffer.resize(buffer.size() * 2);
    std::vector<std::wstring> names;
    for (std::string_view name = buffer.data(); !name.empty(); name = name.data() + name.size() + 1)
        names.push_back(automation::wide(name));
    return names;
}

bool IniFile::write(const char* section, const char* key, const char* value) const
{
    return WritePrivateProfileStringA(section, key, value, path_.c_str()) != FALSE;
}

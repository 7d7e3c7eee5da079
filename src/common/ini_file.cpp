#include "common/ini_file.h"

#include "automation/text.h"

#include <windows.h>

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

bool IniFile::write(const char* section, const char* key, const char* value) const
{
    return WritePrivateProfileStringA(section, key, value, path_.c_str()) != FALSE;
}

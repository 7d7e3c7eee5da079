#include "common/ini_file.h"

#include "automation/text.h"
#include "common/settings_table.h"

#include <windows.h>

#include <algorithm>
#include <optional>
#include <string_view>

namespace hublink {

namespace {

constexpr std::size_t bufferSize = 1024;

bool isBeyondAscii(char byte)
{
    return (static_cast<unsigned char>(byte) & 0x80) != 0;
}

bool continuesCharacter(char byte)
{
    return (static_cast<unsigned char>(byte) & 0xC0) == 0x80;
}

// Empty when it is no UTF-8.
std::optional<std::wstring> fromUtf8(std::string_view bytes)
{
    const int size = static_cast<int>(bytes.size());
    std::wstring text(bytes.size(), L'\0');
    const int length = MultiByteToWideChar(CP_UTF8, MB_ERR_INVALID_CHARS, bytes.data(), size, text.data(), size);
    if (length == 0) return std::nullopt;
    text.resize(static_cast<std::size_t>(length));
    return text;
}

// Without the beginning of a UTF-8 character that a full buffer has cut in two.
std::string_view withoutCutCharacter(std::string_view bytes)
{
    std::size_t start = bytes.size() - 1;
    while (start > 0 && continuesCharacter(bytes[start])) --start;
    const auto lead = static_cast<unsigned char>(bytes[start]);
    const std::size_t whole = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : lead >= 0xC0 ? 2 : 1;
    return bytes.size() - start < whole ? bytes.substr(0, start) : bytes;
}

std::wstring decode(std::string_view bytes)
{
    const bool mayBeCut = bytes.size() == bufferSize - 1;
    const std::string_view whole = mayBeCut ? withoutCutCharacter(bytes) : bytes;
    if (std::any_of(whole.begin(), whole.end(), isBeyondAscii))
        if (auto text = fromUtf8(whole)) return *text;
    return automation::toWide(bytes);
}

}

IniFile::IniFile(const std::wstring& path) : path_(automation::toAnsi(path)) {}

std::wstring IniFile::read(const char* section, const char* key, const char* fallback) const
{
    char buffer[bufferSize];
    const DWORD length = GetPrivateProfileStringA(section, key, fallback, buffer, sizeof buffer, path_.c_str());
    return decode({buffer, length});
}

bool IniFile::readSwitch(const char* section, const char* key, const char* fallback) const
{
    return read(section, key, fallback) == L"true";
}

std::wstring IniFile::read(const Setting& setting) const
{
    return read(setting.section, setting.key, setting.fallback);
}

bool IniFile::readSwitch(const Setting& setting) const
{
    return readSwitch(setting.section, setting.key, setting.fallback);
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
        names.push_back(decode(name));
    return names;
}

bool IniFile::write(const char* section, const char* key, const char* value) const
{
    return WritePrivateProfileStringA(section, key, value, path_.c_str()) != FALSE;
}

bool IniFile::write(const Setting& setting, const char* value) const
{
    return write(setting.section, setting.key, value);
}

}

// An ini file, read and written through the Windows profile functions.
#pragma once

#include <string>
#include <vector>

namespace hublink {

struct Setting;

class IniFile {
public:
    explicit IniFile(const std::wstring& path);

    // The value, or `fallback` where file, section or key is missing. What is
    // longer than 1023 bytes is cut there. A text beyond ASCII that is valid
    // UTF-8, as Notepad writes it, is taken as that, every other one as ANSI.
    std::wstring read(const char* section, const char* key, const char* fallback) const;

    // Whether the value is exactly "true".
    bool readSwitch(const char* section, const char* key, const char* fallback) const;

    // Both of a setting, with its own fallback.
    std::wstring read(const Setting& setting) const;
    bool readSwitch(const Setting& setting) const;

    // The names of all sections, as they stand in the file.
    std::vector<std::wstring> sections() const;

    // False when the file could not be written.
    bool write(const char* section, const char* key, const char* value) const;
    bool write(const Setting& setting, const char* value) const;

private:
    std::string path_;
};

}

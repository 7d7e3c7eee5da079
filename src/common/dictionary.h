// The message dictionary: translated texts in ini files (UTF-16) named by
// language identifier, in the folder "dictionary" beside the program.
#pragma once

#include <windows.h>

#include <cstdint>
#include <string>

namespace hublink {

class Dictionary {
public:
    // `programFolder` without a trailing backslash.
    explicit Dictionary(std::wstring programFolder);

    // Loads the user's interface language: the language itself, else the main
    // form of the same language, else English. Without any of them every text
    // is its default. Never fails.
    void LoadDico();

    // Loads the given language identifier (1036 is French), with the same
    // fall-backs; 0 means the user's interface language.
    void LoadDicoSelected(std::int32_t language);

    // The contract of a profile-string read: fills `buffer` with the ANSI text
    // (cut to size - 1 characters) and returns the number of characters.
    DWORD GetElt(const char* section, const char* key, const char* fallback, char* buffer, DWORD size) const;

    // The file that the texts come from; "" before any was loaded or found.
    const std::wstring& file() const noexcept { return file_; }

private:
    void load(std::int32_t language);

    std::wstring folder_;
    std::wstring file_;
};

}

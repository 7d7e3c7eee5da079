// The keys of the ini file: which there are, in the order in which the program reads
// them, and of what kind their values are.
#pragma once

#include <span>
#include <string>

namespace hublink::check {

enum class Kind {
    stopRequest,
    toggle,     // on for the exact text "true"
    pause,      // whole number of 16 bits, milliseconds
    number,     // whole number of 16 bits
    groupwares, // list of LOTUS and OUTLOOK
    base,       // five parts
    text,
};

struct IniKey {
    const char* name;
    const char* fallback; // what counts when it is missing
    Kind kind;
};

struct IniKeys {
    const char* section;
    std::span<const IniKey> keys;
};

inline constexpr const char* applicationSection = "Application";
inline constexpr const char* featuresSection = "AllApplication";
inline constexpr const char* outlookSection = "outlook";
inline constexpr const char* lotusSection = "lotus";
inline constexpr const char* callLogSection = "lotus call log description";
inline constexpr const char* personalLogSection = "lotus personnel log description";

// All sections but those of the address books.
std::span<const IniKeys> iniSections();

// The keys of each section "lotus base description " and number.
std::span<const IniKey> bookKeys();

inline constexpr const wchar_t* bookSectionBeginning = L"lotus base description ";

// Of a section by its name, without case; empty for one that is not known.
std::span<const IniKey> keysOf(const std::wstring& section);

}

// A program's file, as Windows reads it before it starts it.
#pragma once

#include <map>
#include <set>
#include <string>

namespace programs {

struct Executable {
    std::map<std::string, std::set<std::string>> imports; // the libraries' names in lower case
    unsigned subsystemVersion = 0;                        // 0x0501 is Windows XP
};

// Throws std::runtime_error when it is none of 32 bits.
Executable executable(const std::wstring& path);

// "" for a program that has none.
std::string manifestOf(const std::wstring& path);

// What its version resource says, as the Explorer shows it; all "" for a program that has none.
struct ProgramVersion {
    std::wstring file, product;                                // the texts
    std::wstring numbers;                                      // the four numbers, with dots
    std::wstring description, name, originalFile, productName;
};

ProgramVersion versionOf(const std::wstring& path);

}

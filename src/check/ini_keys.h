// The settings by the names that a file gives to its sections and keys.
#pragma once

#include "common/settings_table.h"

#include <span>
#include <string>

namespace hublink::check {

// Of a section by its name, without case; empty for one that is not known. Each address book's
// section has the same ones.
std::span<const Setting> keysOf(const std::wstring& section);

// An address book's section whose number is longer than any that counts: it may be a telephone number.
bool isNumberedOddly(const std::wstring& section);

// The number of an address book's section, 0 for any other.
int bookNumber(const std::wstring& section);

}

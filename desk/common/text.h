// Texts of the desk: files and the control pipe speak UTF-8, everything else
// UTF-16. What is shown to a person or compared by a test takes one line, so
// line ends and backslashes are escaped, and dates are ISO texts.
#pragma once

#include <windows.h>
#include <oaidl.h>

#include <string>
#include <string_view>
#include <vector>

namespace desk {

std::string utf8(std::wstring_view text);
std::wstring fromUtf8(std::string_view text); // bytes that are no UTF-8 become U+FFFD

// Backslash, line feed, carriage return and NUL as \\ \n \r \0.
std::wstring escaped(std::wstring_view text);

// The reverse; throws std::runtime_error for an unknown escape.
std::wstring unescaped(std::wstring_view text);

// "2023-03-15 06:00:00", to the second.
std::wstring isoText(DATE date);

// The reverse; the time may be left out. Throws std::runtime_error.
DATE dateFromIso(std::wstring_view text);

// Splits off the first word; `rest` keeps what follows it, without the blanks between.
std::wstring takeWord(std::wstring_view& rest);

std::vector<std::wstring> linesOf(std::wstring_view text);
std::wstring joined(const std::vector<std::wstring>& lines); // with a line feed between two

// A whole number written in full, also as 0x…; throws std::runtime_error naming `what`.
unsigned long numberOf(std::wstring_view text, const char* what);

// The lower case of the user's language, for comparisons without case.
std::wstring lowerCase(std::wstring_view text);

}

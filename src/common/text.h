// Small operations on texts.
#pragma once

#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

namespace hublink {

// The parts between the separators, untrimmed; an empty text has no parts.
std::vector<std::wstring> split(std::wstring_view text, wchar_t separator);

// The text without the blanks at both ends; other white space stays.
std::wstring trim(std::wstring_view text);

// In lower case, by the user's language.
std::wstring lowerCase(std::wstring text);

// Whether it is, case-sensitive, one of the words.
bool isOneOf(std::wstring_view text, std::initializer_list<std::wstring_view> words);

// Every occurrence replaced, from the left, case-sensitive. What a replacement
// brings in is not looked at again. An empty `what` replaces nothing.
std::wstring replaceAll(std::wstring text, std::wstring_view what, std::wstring_view with);

}

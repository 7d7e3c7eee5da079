#include "common/text.h"

#include <windows.h>

#include <algorithm>

namespace hublink {

std::vector<std::wstring> split(std::wstring_view text, wchar_t separator)
{
    std::vector<std::wstring> parts;
    if (text.empty()) return parts;
    for (;;) {
        const std::size_t end = text.find(separator);
        parts.emplace_back(text.substr(0, end));
        if (end == std::wstring_view::npos) return parts;
        text.remove_prefix(end + 1);
    }
}

std::wstring trim(std::wstring_view text)
{
    const std::size_t first = text.find_first_not_of(L' ');
    if (first == std::wstring_view::npos) return L"";
    return std::wstring(text.substr(first, text.find_last_not_of(L' ') - first + 1));
}

std::wstring lowerCase(std::wstring text)
{
    CharLowerBuffW(text.data(), static_cast<DWORD>(text.size()));
    return text;
}

bool isOneOf(std::wstring_view text, std::initializer_list<std::wstring_view> words)
{
    return std::find(words.begin(), words.end(), text) != words.end();
}

std::wstring replaceAll(std::wstring text, std::wstring_view what, std::wstring_view with)
{
    if (what.empty()) return text;
    for (std::size_t at = text.find(what); at != std::wstring::npos; at = text.find(what, at + with.size()))
        text.replace(at, what.size(), with);
    return text;
}

}

#include "common/text.h"

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

std::wstring replaceAll(std::wstring text, std::wstring_view what, std::wstring_view with)
{
    if (what.empty()) return text;
    for (std::size_t at = text.find(what); at != std::wstring::npos; at = text.find(what, at + with.size()))
        text.replace(at, what.size(), with);
    return text;
}

#include "desk/common/text.h"

#include <algorithm>
#include <cwchar>
#include <stdexcept>

namespace desk {

std::string utf8(std::wstring_view text)
{
    const int length = static_cast<int>(text.size());
    const int size = WideCharToMultiByte(CP_UTF8, 0, text.data(), length, nullptr, 0, nullptr, nullptr);
    std::string result(static_cast<std::size_t>(size), '\0');
    WideCharToMultiByte(CP_UTF8, 0, text.data(), length, result.data(), size, nullptr, nullptr);
    return result;
}

std::wstring fromUtf8(std::string_view text)
{
    const int length = static_cast<int>(text.size());
    const int size = MultiByteToWideChar(CP_UTF8, 0, text.data(), length, nullptr, 0);
    std::wstring result(static_cast<std::size_t>(size), L'\0');
    MultiByteToWideChar(CP_UTF8, 0, text.data(), length, result.data(), size);
    return result;
}

std::wstring escaped(std::wstring_view text)
{
    std::wstring result;
    result.reserve(text.size());
    for (const wchar_t c : text) {
        switch (c) {
        case L'\\': result += L"\\\\"; break;
        case L'\n': result += L"\\n"; break;
        case L'\r': result += L"\\r"; break;
        case L'\0': result += L"\\0"; break;
        default: result += c;
        }
    }
    return result;
}

std::wstring unescaped(std::wstring_view text)
{
    std::wstring result;
    result.reserve(text.size());
    for (std::size_t at = 0; at < text.size(); ++at) {
        if (text[at] != L'\\') {
            result += text[at];
            continue;
        }
        switch (++at < text.size() ? text[at] : L' ') {
        case L'\\': result += L'\\'; break;
        case L'n': result += L'\n'; break;
        case L'r': result += L'\r'; break;
        case L'0': result += L'\0'; break;
        default: throw std::runtime_error("a backslash stands before none of \\ n r 0");
        }
    }
    return result;
}

std::wstring isoText(DATE date)
{
    SYSTEMTIME time{};
    if (!VariantTimeToSystemTime(date, &time)) return L"invalid date";
    wchar_t text[32];
    swprintf(text, 32, L"%04u-%02u-%02u %02u:%02u:%02u", time.wYear, time.wMonth, time.wDay, time.wHour, time.wMinute,
             time.wSecond);
    return text;
}

DATE dateFromIso(std::wstring_view text)
{
    const std::wstring whole(text);
    unsigned year = 0, month = 0, day = 0, hour = 0, minute = 0, second = 0;
    const int read = swscanf(whole.c_str(), L"%4u-%2u-%2u %2u:%2u:%2u", &year, &month, &day, &hour, &minute, &second);
    SYSTEMTIME time{};
    time.wYear = static_cast<WORD>(year);
    time.wMonth = static_cast<WORD>(month);
    time.wDay = static_cast<WORD>(day);
    time.wHour = static_cast<WORD>(hour);
    time.wMinute = static_cast<WORD>(minute);
    time.wSecond = static_cast<WORD>(second);
    DATE date = 0;
    const bool valid = (read == 3 || read == 6) && SystemTimeToVariantTime(&time, &date);
    // A 30 February would pass as 2 March.
    if (!valid || isoText(date).substr(0, 10) != whole.substr(0, 10))
        throw std::runtime_error("\"" + utf8(text) + "\" is no date of the form 2023-03-15 06:00:00");
    return date;
}

std::wstring takeWord(std::wstring_view& rest)
{
    constexpr std::wstring_view blanks = L" \t\r\n";
    const std::size_t start = rest.find_first_not_of(blanks);
    rest.remove_prefix(start == std::wstring_view::npos ? rest.size() : start);
    const std::size_t length = std::min(rest.find_first_of(blanks), rest.size());
    std::wstring word(rest.substr(0, length));
    rest.remove_prefix(length);
    const std::size_t next = rest.find_first_not_of(blanks);
    rest.remove_prefix(next == std::wstring_view::npos ? rest.size() : next);
    return word;
}

std::vector<std::wstring> linesOf(std::wstring_view text)
{
    std::vector<std::wstring> lines;
    while (!text.empty()) {
        const std::size_t end = std::min(text.find(L'\n'), text.size());
        std::wstring_view line = text.substr(0, end);
        if (!line.empty() && line.back() == L'\r') line.remove_suffix(1);
        lines.emplace_back(line);
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return lines;
}

std::wstring joined(const std::vector<std::wstring>& lines)
{
    std::wstring text;
    for (const std::wstring& line : lines) {
        if (&line != lines.data()) text += L'\n';
        text += line;
    }
    return text;
}

unsigned long numberOf(std::wstring_view text, const char* what)
{
    const std::wstring whole(text);
    wchar_t* end = nullptr;
    const unsigned long number = std::wcstoul(whole.c_str(), &end, 0);
    if (whole.empty() || *end || whole[0] == L'-')
        throw std::runtime_error("\"" + utf8(text) + "\" is no number (" + what + ")");
    return number;
}

std::wstring lowerCase(std::wstring_view text)
{
    std::wstring lower(text);
    CharLowerBuffW(lower.data(), static_cast<DWORD>(lower.size()));
    return lower;
}

}

#include "log_lines.h"

#include "desk/common/text.h"

namespace deaths {

namespace {

// "3/15/2023 6:00:00 AM text": at midnight the time is left out.
std::wstring withoutTime(std::wstring_view line)
{
    desk::takeWord(line);
    std::wstring_view rest = line;
    if (desk::takeWord(rest).find(L':') == std::wstring::npos) return std::wstring(line);
    line = rest;
    const std::wstring half = desk::takeWord(rest);
    return std::wstring(half == L"AM" || half == L"PM" ? rest : line);
}

}

std::vector<std::wstring> linesWithoutTime(const std::wstring& text)
{
    std::vector<std::wstring> lines;
    for (const std::wstring& line : desk::linesOf(text)) lines.push_back(withoutTime(line));
    return lines;
}

}

#include "check/ini_keys.h"

#include "automation/text.h"

#include <cwchar>

namespace hublink::check {

namespace {

// What stands behind the words that all address books' sections begin with; "" of any other section.
std::wstring bookDigits(const std::wstring& section)
{
    const std::wstring beginning = automation::toWide(bookSection);
    if (!automation::equalIgnoringCase(section.substr(0, beginning.size()), beginning)) return L"";
    const std::wstring digits = section.substr(beginning.size());
    return digits.find_first_not_of(L"0123456789") == std::wstring::npos ? digits : L"";
}

}

std::span<const Setting> keysOf(const std::wstring& section)
{
    if (!bookDigits(section).empty()) return settingsIn(bookSection);
    for (const Setting& each : settingsTable)
        if (!isOfBook(each) && automation::equalIgnoringCase(section, automation::toWide(each.section)))
            return settingsIn(each.section);
    return {};
}

bool isNumberedOddly(const std::wstring& section)
{
    constexpr std::size_t mostDigits = 3;
    return bookDigits(section).size() > mostDigits;
}

int bookNumber(const std::wstring& section)
{
    return static_cast<int>(std::wcstol(bookDigits(section).c_str(), nullptr, 10));
}

}

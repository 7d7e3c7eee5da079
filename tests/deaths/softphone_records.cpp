#include "softphone_records.h"

#include "desk/common/text.h"

#include <cstdio>

namespace deaths {

namespace {

std::wstring twoDigits(int n)
{
    wchar_t text[8];
    std::swprintf(text, 8, L"%02d", n);
    return text;
}

Entry entry(int n)
{
    const std::wstring digits = twoDigits(n);
    // Every third with separators: they are stripped on the way.
    const std::wstring written = n % 3 == 1 ? L"01 00." + digits : L"0100" + digits;
    return {L"1." + std::to_wstring(n), L"0100" + digits, written, L"Last" + digits, L"First" + digits};
}

// Calls from entries, from the two strangers (the first one twice), and from a
// caller who hides the number.
Call call(int n)
{
    const std::wstring begin = L"2023-03-" + twoDigits(n) + L" 06:00:00";
    Call made{L"2." + std::to_wstring(n), begin, L"", L"", L"", n == 4 || n == 11};
    switch (n) {
    case 2:
    case 9: made.number = strangers[0]; break;
    case 6: made.number = strangers[1]; break;
    case 7: return made;
    default: made.number = entry(n % 10 + 1).written;
    }
    if (n == 2 || n == 6 || n == 9) {
        made.lastName = n == 6 ? L"Blanc" : L"Adler";
        made.firstName = n == 6 ? L"Bernd" : L"Alice";
    }
    return made;
}

template <class Record>
std::vector<Record> made(Record (*make)(int), int count)
{
    std::vector<Record> records;
    for (int n = 1; n <= count; ++n) records.push_back(make(n));
    return records;
}

std::wstring party(const std::wstring& number, const std::wstring& lastName, const std::wstring& firstName)
{
    std::wstring text;
    if (!number.empty()) text += L"Number=" + number + L"\n";
    if (!lastName.empty()) text += L"LastName=" + lastName + L"\nFirstName=" + firstName + L"\n";
    return text;
}

}

const std::vector<Entry>& entries()
{
    static const std::vector<Entry> all = made(entry, 10);
    return all;
}

const std::vector<Call>& calls()
{
    static const std::vector<Call> all = made(call, 15);
    return all;
}

std::string softphoneStore()
{
    std::wstring text = L"[user]\nFirstText=Anna\nSecondText=Keller\nNumber=4700\n";
    for (const Entry& one : entries())
        text += L"[entry]\nId=" + one.id + L"\n" + party(one.written, one.lastName, one.firstName);
    int n = 0;
    for (const Call& one : calls()) {
        text += L"[history]\nId=" + one.id + L"\nBeginDate=" + one.begin + L"\nEndDate=" + one.begin.substr(0, 13) +
                L":07:30\nState=" + std::to_wstring(++n % 5 == 0 ? 6 : 3) + L"\n";
        text += std::wstring(L"Incoming=") + (n % 2 ? L"True" : L"False") + L"\n" +
                party(one.number, one.lastName, one.firstName);
    }
    return desk::utf8(text);
}

}

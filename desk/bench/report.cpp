#include "desk/bench/report.h"

#include "desk/common/text.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cwchar>

namespace desk::bench {

namespace {

template <std::size_t Size>
std::wstring formatted(const wchar_t (&format)[Size], double number)
{
    wchar_t text[64];
    std::swprintf(text, std::size(text), format, number);
    return text;
}

}

void Report::print(const std::wstring& line)
{
    std::fputs((utf8(line) + "\n").c_str(), stdout);
    std::fflush(stdout);
}

void Report::section(const std::wstring& title)
{
    print(L"\n== " + title);
}

void Report::remark(const std::wstring& text)
{
    print(L"      " + text);
}

void Report::target(bool met, const std::wstring& figure)
{
    const std::wstring line = (met ? L"met      " : L"NOT MET  ") + figure;
    print(L"   " + line);
    targets_ += L"   " + line + L"\n";
    if (!met) ++missed_;
}

void Report::cost(const Cost& cost)
{
    figure({L"cost", cost.work, cost.client, std::to_wstring(cost.contacts),
            std::to_wstring(std::lround(cost.roundTrips)), std::to_wstring(std::lround(cost.milliseconds)),
            cost.how == Known::measured ? L"measured" : L"reckoned"});
}

void Report::needed(const std::wstring& work, unsigned long roundTrips)
{
    figure({L"needed", work, std::to_wstring(roundTrips)});
}

void Report::figure(const std::vector<std::wstring>& parts)
{
    std::wstring line = L"figure";
    for (const std::wstring& part : parts) line += L"\t" + part;
    print(line);
}

int Report::conclude()
{
    section(L"Targets");
    print(targets_);
    print(missed_ ? std::to_wstring(missed_) + L" NOT MET" : L"all met");
    return missed_;
}

std::wstring aligned(const std::wstring& text, std::size_t width)
{
    return std::wstring(width - std::min(width, text.size()), L' ') + text;
}

std::wstring decimal(double number)
{
    return formatted(L"%.3f", number);
}

std::wstring seconds(double milliseconds)
{
    return formatted(L"%.1f s", milliseconds / 1000);
}

}

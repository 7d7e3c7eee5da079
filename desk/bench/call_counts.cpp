#include "desk/bench/call_counts.h"

#include "desk/bench/report.h"
#include "desk/common/text.h"

#include <algorithm>
#include <set>

namespace desk::bench {

namespace {

constexpr std::size_t memberWidth = 40;
constexpr std::size_t countWidth = 12;

std::wstring leftAligned(std::wstring text, std::size_t width)
{
    text.resize(std::max(width, text.size()), L' ');
    return text;
}

std::wstring pairOf(const std::wstring& calls, const std::wstring& lookUps)
{
    return aligned(calls, countWidth) + aligned(lookUps, countWidth);
}

std::wstring shown(unsigned long count)
{
    return count ? std::to_wstring(count) : L".";
}

template <class Cell>
std::wstring line(const std::wstring& head, const std::vector<CountColumn>& columns, Cell cell)
{
    std::wstring text = leftAligned(head, memberWidth);
    for (const CountColumn& column : columns) text += cell(column);
    return text;
}

}

CallCounts::CallCounts(std::wstring_view totals)
{
    for (const std::wstring& line : linesOf(totals)) {
        std::wstring_view rest = line;
        const unsigned long count = numberOf(takeWord(rest), "a partner's count of calls");
        MemberCount& member = members_[takeWord(rest)];
        (rest == L"lookup" ? member.lookUps : member.calls) += count;
    }
}

CallCounts& CallCounts::operator+=(const CallCounts& more)
{
    for (const auto& [name, count] : more.members_) {
        members_[name].calls += count.calls;
        members_[name].lookUps += count.lookUps;
    }
    return *this;
}

unsigned long CallCounts::total() const
{
    unsigned long sum = lookUps();
    for (const auto& [name, count] : members_) sum += count.calls;
    return sum;
}

unsigned long CallCounts::lookUps() const
{
    unsigned long sum = 0;
    for (const auto& [name, count] : members_) sum += count.lookUps;
    return sum;
}

MemberCount CallCounts::of(const std::wstring& member) const
{
    const auto found = members_.find(member);
    return found == members_.end() ? MemberCount{} : found->second;
}

std::vector<std::wstring> table(const std::vector<CountColumn>& columns)
{
    std::set<std::wstring> names;
    for (const CountColumn& column : columns)
        for (const auto& [name, count] : column.counts.members()) names.insert(name);

    std::vector<std::wstring> lines{
        line(L"round trips", columns, [](const CountColumn& column) { return pairOf(column.title, L"look-ups"); })};
    for (const std::wstring& name : names)
        lines.push_back(line(name, columns, [&](const CountColumn& column) {
            const MemberCount count = column.counts.of(name);
            return pairOf(shown(count.calls), shown(count.lookUps));
        }));
    lines.push_back(line(L"all, look-ups included", columns, [](const CountColumn& column) {
        return pairOf(std::to_wstring(column.counts.total()), shown(column.counts.lookUps()));
    }));
    return lines;
}

}

// The calls that a partner counted, by member.
#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

namespace desk::bench {

struct MemberCount {
    unsigned long calls = 0;
    unsigned long lookUps = 0; // of the name
};

class CallCounts {
public:
    CallCounts() = default;

    // From a partner's response to "calls". Throws std::runtime_error for
    // anything else.
    explicit CallCounts(std::wstring_view totals);

    CallCounts& operator+=(const CallCounts& more);

    // Calls and look-ups together: each is a round trip.
    unsigned long total() const;
    unsigned long lookUps() const;

    // By "Class.Member"; nothing when it was never called.
    MemberCount of(const std::wstring& member) const;
    const std::map<std::wstring, MemberCount>& members() const noexcept { return members_; }

private:
    std::map<std::wstring, MemberCount> members_;
};

struct CountColumn {
    std::wstring title;
    CallCounts counts;
};

// A table with a line for each member and a pair of columns, calls and
// look-ups, for each client; the sums come last.
std::vector<std::wstring> table(const std::vector<CountColumn>& columns);

}

// The calls that a partner received, as its control command `record` tells them.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace deaths {

struct PartnerCall {
    std::wstring member;    // "Items.Find"
    std::wstring kind;      // "lookup", "get", "put" or "method"
    std::wstring arguments; // "BSTR \"0123\""
    std::wstring text;      // the whole line

    bool isLookUp() const { return kind == L"lookup"; }
    bool is(std::wstring_view wantedMember, std::wstring_view wantedKind) const
    {
        return member == wantedMember && kind == wantedKind;
    }
    bool isOf(std::wstring_view className) const { return member.starts_with(std::wstring(className) + L"."); }
};

std::vector<PartnerCall> partnerCalls(std::wstring_view record);

// The call that a look-up prepares: the next one of that member. A call itself
// is its own; a look-up without one is too.
std::size_t preparedBy(const std::vector<PartnerCall>& calls, std::size_t index);

}

#include "partner_call.h"

#include "desk/common/text.h"

namespace deaths {

namespace {

PartnerCall partnerCall(const std::wstring& line)
{
    PartnerCall call;
    call.text = line;
    std::wstring_view rest = line;
    call.member = desk::takeWord(rest);
    call.kind = desk::takeWord(rest);
    if (rest.size() >= 2) call.arguments = rest.substr(1, rest.size() - 2);
    return call;
}

}

std::vector<PartnerCall> partnerCalls(std::wstring_view record)
{
    std::vector<PartnerCall> calls;
    for (const std::wstring& line : desk::linesOf(record)) calls.push_back(partnerCall(line));
    return calls;
}

std::size_t preparedBy(const std::vector<PartnerCall>& calls, std::size_t index)
{
    if (!calls[index].isLookUp()) return index;
    for (std::size_t next = index + 1; next < calls.size(); ++next)
        if (!calls[next].isLookUp() && calls[next].member == calls[index].member) return next;
    return index;
}

}

// Softphone records with named members, as late-bound clients see them.
#pragma once

#include "automation/server/dispatch.h"
#include "common/softphone_records.h"

#include <map>
#include <string>

namespace support {

// Answers the names it was given and no others; counts what was read.
class NamedRecord final : public automation::server::Dispatch {
public:
    explicit NamedRecord(std::map<std::wstring, automation::Value> members)
    {
        DISPID id = 100;
        for (auto& [name, value] : members) members_.emplace(id++, std::pair(name, value));
    }

protected:
    DISPID idOf(std::wstring_view name) override
    {
        for (const auto& [id, member] : members_)
            if (automation::server::isSameName(member.first, name)) return id;
        return DISPID_UNKNOWN;
    }

    automation::Value answer(const automation::server::IncomingCall& call) override
    {
        const auto found = members_.find(call.id);
        if (found == members_.end()) throw automation::server::Failure{DISP_E_MEMBERNOTFOUND};
        return found->second.second;
    }

private:
    std::map<DISPID, std::pair<std::wstring, automation::Value>> members_;
};

inline automation::Object record(std::map<std::wstring, automation::Value> members)
{
    return automation::Object(automation::server::make<NamedRecord>(std::move(members)).get());
}

}

inline hublink::SoftphoneEntry softphoneEntry(const wchar_t* number, const wchar_t* lastName, const wchar_t* firstName)
{
    return hublink::SoftphoneEntry(
        support::record({{L"Number", number}, {L"LastName", lastName}, {L"FirstName", firstName}}));
}

// A small object of the server side that remembers what it was asked.
#pragma once

#include "automation/server/dispatch.h"

#include <string>
#include <vector>

namespace partners {

class Partner final : public automation::server::TableDispatch<Partner> {
public:
    static const std::vector<automation::server::MemberRow<Partner>>& members();

    std::vector<std::wstring> lookUps;
    std::vector<VARTYPE> types;
    std::wstring name = L"first";

protected:
    HRESULT admitLookUp(std::wstring_view wanted) override
    {
        lookUps.emplace_back(wanted);
        return S_OK;
    }

    HRESULT admitCall(const automation::server::IncomingCall& call) override
    {
        types.clear();
        for (std::size_t index = 0; index < call.arguments.size(); ++index)
            types.push_back(V_VT(&call.arguments.raw(index)));
        return S_OK;
    }
};

inline const std::vector<automation::server::MemberRow<Partner>>& Partner::members()
{
    namespace server = automation::server;
    using automation::Value;
    static const std::vector<server::MemberRow<Partner>> rows{
        {L"Name", 1, server::readWrite, 0, 0,
         [](Partner& self, const server::IncomingCall& call) -> Value {
             if (call.isPut()) self.name = call.arguments.text(0);
             return self.name;
         }},
        {L"Echo", 2, server::method, 1, 3,
         [](Partner&, const server::IncomingCall& call) -> Value { return call.arguments.value(0); }},
        {L"Fail", 3, server::method, 0, 0,
         [](Partner&, const server::IncomingCall&) -> Value {
             throw server::Exception{E_FAIL, L"Partner", L"it is broken"};
         }},
        {L"Number", 4, server::method, 2, 2,
         [](Partner&, const server::IncomingCall& call) -> Value { return call.arguments.int32(1); }},
        {L"Count", 5, server::readOnly, 0, 0,
         [](Partner&, const server::IncomingCall&) -> Value { return std::int32_t{7}; }},
    };
    return rows;
}

}

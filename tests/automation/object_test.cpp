#include "automation/object.h"
#include "automation/server/dispatch.h"

#include <gtest/gtest.h>

namespace {

using automation::AutomationError;
using automation::Object;
using automation::Value;
namespace server = automation::server;

// A small object that remembers what it was asked.
class Partner final : public server::TableDispatch<Partner> {
public:
    static const std::vector<server::MemberRow<Partner>>& members();

    int lookUps = 0;
    std::vector<VARTYPE> types;
    std::wstring name = L"first";

protected:
    HRESULT admitLookUp(std::wstring_view) override
    {
        ++lookUps;
        return S_OK;
    }

    HRESULT admitCall(const server::IncomingCall& call) override
    {
        types.clear();
        for (std::size_t index = 0; index < call.arguments.size(); ++index)
            types.push_back(V_VT(&call.arguments.raw(index)));
        return S_OK;
    }
};

const std::vector<server::MemberRow<Partner>>& Partner::members()
{
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
    };
    return rows;
}

}

TEST(Object, NameLookedUp_OnceOnly_WithoutRegardToCase)
{
    const auto partner = server::make<Partner>();
    const Object object(partner.get());
    EXPECT_EQ(object.get(L"NAME").text(), L"first");
    object.put(L"NAME", L"second");
    EXPECT_EQ(object.get(L"NAME").text(), L"second");
    EXPECT_EQ(partner->lookUps, 1);
}

TEST(Object, Arguments_ArriveWithTheirExactTypes)
{
    const auto partner = server::make<Partner>();
    const Object object(partner.get());
    object.call(L"Echo", {std::int16_t{0}, std::int32_t{0}, true});
    EXPECT_EQ(partner->types, (std::vector<VARTYPE>{VT_I2, VT_I4, VT_BOOL}));
    object.call(L"Echo", {L"text", Value::date(1.5), Object()});
    EXPECT_EQ(partner->types, (std::vector<VARTYPE>{VT_BSTR, VT_DATE, VT_DISPATCH}));
}

TEST(Object, ServerException_CarriesEverythingItSaid)
{
    const auto partner = server::make<Partner>();
    try {
        Object(partner.get()).call(L"Fail");
        FAIL() << "no error";
    } catch (const AutomationError& error) {
        EXPECT_EQ(error.member(), L"Fail");
        EXPECT_EQ(error.code(), E_FAIL);
        EXPECT_EQ(error.source(), L"Partner");
        EXPECT_EQ(error.description(), L"it is broken");
    }
}

TEST(Object, RefusedArgument_IsNamedFromTheLeft)
{
    const auto partner = server::make<Partner>();
    try {
        Object(partner.get()).call(L"Number", {std::int32_t{1}, L"abc"});
        FAIL() << "no error";
    } catch (const AutomationError& error) {
        EXPECT_EQ(error.code(), DISP_E_TYPEMISMATCH);
        EXPECT_EQ(error.argument(), 1u);
    }
}

TEST(Object, EmptyReference_FailsWithObjectNotSet)
{
    try {
        Object().get(L"Name");
        FAIL() << "no error";
    } catch (const AutomationError& error) {
        EXPECT_EQ(error.code(), automation::objectNotSet);
    }
}

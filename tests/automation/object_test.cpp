// How members are found and called: names, flags, arguments.
#include "automation/object.h"
#include "partner.h"
#include "support/raw_partner.h"

#include <gtest/gtest.h>

using automation::AutomationError;
using automation::Object;
using automation::Value;
using partners::Partner;
using support::RawPartner;
namespace server = automation::server;

TEST(Object, Name_IsLookedUpOnce_ForGetPutAndCall)
{
    RawPartner partner({{L"Name", 1}});
    const Object object(&partner);
    object.get(L"Name");
    object.put(L"Name", L"second");
    object.call(L"Name");
    object.get(L"Name");
    EXPECT_EQ(partner.lookUps, (std::vector<std::wstring>{L"Name"}));
    EXPECT_EQ(partner.invocations.size(), 4u);
}

TEST(Object, NameInAnotherCase_IsTheSameMember)
{
    const auto partner = server::make<Partner>();
    const Object object(partner.get());
    object.put(L"NAME", L"second");
    EXPECT_EQ(object.get(L"name").text(), L"second");
}

TEST(Object, Copy_KnowsTheNamesAlready)
{
    RawPartner partner({{L"Name", 1}});
    const Object object(&partner);
    object.get(L"Name");
    const Object copy = object;
    copy.get(L"Name");
    EXPECT_EQ(partner.lookUps.size(), 1u);
}

TEST(Object, TwoObjects_LookUpTheirOwnNames)
{
    RawPartner first({{L"Name", 1}});
    RawPartner second({{L"Name", 2}});
    const Object one(&first);
    const Object other(&second);
    one.get(L"Name");
    other.get(L"Name");
    EXPECT_EQ(first.invocations.at(0).id, 1);
    EXPECT_EQ(second.invocations.at(0).id, 2);
}

TEST(Object, SharedNames_AreLookedUpOnceForAClass)
{
    RawPartner first({{L"Name", 1}, {L"Other", 2}});
    RawPartner second({{L"Name", 1}, {L"Other", 2}});
    const auto idCache = automation::makeIdCache();
    const Object one = Object(&first).usingIdCache(idCache);
    const Object other = Object(&second).usingIdCache(idCache);
    one.get(L"Name");
    other.get(L"Name");
    other.get(L"Other");
    one.put(L"Other", L"x");
    EXPECT_EQ(first.lookUps, (std::vector<std::wstring>{L"Name"}));
    EXPECT_EQ(second.lookUps, (std::vector<std::wstring>{L"Other"}));
}

TEST(Object, RememberedIdentifier_NotFoundByTheServer_IsLookedUpAgain)
{
    RawPartner partner({{L"Name", 7}});
    partner.onCall = [](const RawPartner::Call& call) { return call.id == 7 ? S_OK : DISP_E_MEMBERNOTFOUND; };
    const auto idCache = automation::makeIdCache();
    idCache->remember(L"Name", 1);
    const Object object = Object(&partner).usingIdCache(idCache);
    object.get(L"Name");
    ASSERT_EQ(partner.invocations.size(), 2u);
    EXPECT_EQ(partner.invocations[0].id, 1);
    EXPECT_EQ(partner.invocations[1].id, 7);

    object.get(L"Name");
    EXPECT_EQ(partner.lookUps.size(), 1u) << "the corrected identifier is remembered";
}

TEST(Object, RememberedIdentifier_NotFoundEvenByName_IsAnErrorAfterOneLookUp)
{
    RawPartner partner({{L"Name", 7}});
    partner.onCall = [](const RawPartner::Call&) { return DISP_E_MEMBERNOTFOUND; };
    const auto idCache = automation::makeIdCache();
    idCache->remember(L"Name", 1);
    const Object object = Object(&partner).usingIdCache(idCache);
    EXPECT_THROW(object.get(L"Name"), AutomationError);
    EXPECT_EQ(partner.lookUps.size(), 1u);
    EXPECT_EQ(partner.invocations.size(), 2u);
}

TEST(Object, FreshIdentifier_NotFoundByTheServer_IsNotLookedUpAgain)
{
    RawPartner partner({{L"Name", 1}});
    partner.onCall = [](const RawPartner::Call&) { return DISP_E_MEMBERNOTFOUND; };
    EXPECT_THROW(Object(&partner).get(L"Name"), AutomationError);
    EXPECT_EQ(partner.lookUps.size(), 1u);
    EXPECT_EQ(partner.invocations.size(), 1u);
}

TEST(Object, OtherErrors_WithARememberedIdentifier_AreNotLookedUpAgain)
{
    for (const HRESULT code : {E_FAIL, E_NOTIMPL, DISP_E_UNKNOWNNAME, DISP_E_BADPARAMCOUNT, DISP_E_TYPEMISMATCH,
                               DISP_E_PARAMNOTFOUND, RPC_E_DISCONNECTED}) {
        RawPartner partner({{L"Name", 1}});
        const Object object(&partner);
        object.get(L"Name");
        partner.onCall = [code](const RawPartner::Call&) { return code; };
        EXPECT_THROW(object.get(L"Name"), AutomationError);
        EXPECT_EQ(partner.lookUps.size(), 1u) << std::hex << code;
        EXPECT_EQ(partner.invocations.size(), 2u) << std::hex << code;
    }
}

TEST(Object, ExceptionSayingMemberNotFound_IsNotLookedUpAgain)
{
    RawPartner partner({{L"Name", 1}});
    const Object object(&partner);
    object.get(L"Name");
    partner.onCall = [](const RawPartner::Call& call) {
        call.exception->scode = DISP_E_MEMBERNOTFOUND;
        return DISP_E_EXCEPTION;
    };
    EXPECT_THROW(object.get(L"Name"), AutomationError);
    EXPECT_EQ(partner.lookUps.size(), 1u);
}

TEST(Object, MemberGivenByIdentifier_IsNeverAskedForByName)
{
    RawPartner partner;
    partner.onCall = [](const RawPartner::Call&) { return DISP_E_MEMBERNOTFOUND; };
    EXPECT_THROW(Object(&partner).get(14), AutomationError);
    EXPECT_TRUE(partner.lookUps.empty());
    ASSERT_EQ(partner.invocations.size(), 1u);
    EXPECT_EQ(partner.invocations[0].id, 14);
}

TEST(Object, UnknownName_IsAnErrorThatNamesTheMember)
{
    RawPartner partner;
    try {
        Object(&partner).call(L"Nothing");
        FAIL() << "no error";
    } catch (const AutomationError& error) {
        EXPECT_EQ(error.member(), L"Nothing");
        EXPECT_EQ(error.code(), DISP_E_UNKNOWNNAME);
    }
    EXPECT_TRUE(partner.invocations.empty());
}

TEST(Object, Get_AsksForMethodAndPropertyAtOnce)
{
    RawPartner partner({{L"Name", 1}});
    Object(&partner).get(L"Name", {L"argument"});
    EXPECT_EQ(partner.invocations.at(0).flags, DISPATCH_METHOD | DISPATCH_PROPERTYGET);
    EXPECT_TRUE(partner.invocations.at(0).named.empty());
}

TEST(Object, Call_AsksForAMethodOnly)
{
    RawPartner partner({{L"Name", 1}});
    Object(&partner).call(L"Name", {L"argument"});
    EXPECT_EQ(partner.invocations.at(0).flags, DISPATCH_METHOD);
    EXPECT_TRUE(partner.invocations.at(0).named.empty());
}

TEST(Object, Call_TakesTheResultAndLetsItGo)
{
    RawPartner result;
    RawPartner partner({{L"Add", 1}});
    partner.onCall = [&](const RawPartner::Call& call) {
        EXPECT_NE(call.result, nullptr) << "a marshaller would keep the object";
        if (!call.result) return S_OK;
        result.AddRef();
        V_VT(call.result) = VT_DISPATCH;
        V_DISPATCH(call.result) = &result;
        return S_OK;
    };
    Object(&partner).call(L"Add");
    EXPECT_EQ(result.references, 1u);
}

TEST(Object, Put_NamesItsValueAsThePropertyPut)
{
    RawPartner partner({{L"Name", 1}});
    Object(&partner).put(L"Name", L"value");
    const auto& put = partner.invocations.at(0);
    EXPECT_EQ(put.flags, DISPATCH_PROPERTYPUT);
    EXPECT_EQ(put.named, (std::vector<DISPID>{DISPID_PROPERTYPUT}));
    EXPECT_EQ(put.types, (std::vector<VARTYPE>{VT_BSTR}));
}

TEST(Object, Arguments_ArriveWithTheirExactTypes)
{
    RawPartner partner({{L"Echo", 2}});
    const Object object(&partner);
    object.call(L"Echo",
                {std::int16_t{0}, std::int32_t{0}, true, L"text", Value::date(1.5), Object(&partner), Value()});
    EXPECT_EQ(partner.invocations.at(0).types,
              (std::vector<VARTYPE>{VT_I2, VT_I4, VT_BOOL, VT_BSTR, VT_DATE, VT_DISPATCH, VT_EMPTY}));
}

TEST(Object, Arguments_ArriveWithTheirValues)
{
    RawPartner partner({{L"Echo", 2}});
    partner.onCall = [&](const RawPartner::Call& call) {
        EXPECT_EQ(V_I2(&call.argument(0)), -2);
        EXPECT_EQ(V_I4(&call.argument(1)), 70000);
        EXPECT_EQ(V_BOOL(&call.argument(2)), VARIANT_TRUE);
        EXPECT_EQ(V_BOOL(&call.argument(3)), VARIANT_FALSE);
        EXPECT_EQ(V_DATE(&call.argument(4)), 1.5);
        EXPECT_EQ(V_DISPATCH(&call.argument(5)), nullptr);
        return S_OK;
    };
    Object(&partner).call(L"Echo", {std::int16_t{-2}, std::int32_t{70000}, true, false, Value::date(1.5), Object()});
    EXPECT_EQ(partner.invocations.size(), 1u);
}

TEST(Object, TextWithNulCharacters_ArrivesWhole)
{
    RawPartner partner({{L"Echo", 2}});
    partner.onCall = [](const RawPartner::Call& call) {
        EXPECT_EQ(SysStringLen(V_BSTR(&call.argument(0))), 3u);
        return S_OK;
    };
    Object(&partner).call(L"Echo", {std::wstring(L"a\0b", 3)});
    EXPECT_EQ(partner.invocations.size(), 1u);
}

TEST(Object, Result_IsHandedBackAsItCame)
{
    RawPartner partner({{L"When", 1}});
    partner.onCall = [](const RawPartner::Call& call) {
        V_VT(call.result) = VT_DATE;
        V_DATE(call.result) = 45000.25;
        return S_OK;
    };
    const Value result = Object(&partner).get(L"When");
    EXPECT_EQ(result.type(), VT_DATE);
    EXPECT_EQ(V_DATE(&result.variant()), 45000.25);
}

TEST(Object, TextBufferByReference_IsSeenWhole_AndWrittenBack)
{
    RawPartner partner({{L"ConvertIdOrvel", 1}});
    partner.onCall = [](const RawPartner::Call& call) {
        VARIANT& buffer = call.argument(1);
        EXPECT_EQ(V_VT(&buffer), VT_BYREF | VT_BSTR);
        const std::wstring seen(*V_BSTRREF(&buffer), SysStringLen(*V_BSTRREF(&buffer)));
        EXPECT_EQ(seen, std::wstring(1024, L'\0'));
        SysFreeString(*V_BSTRREF(&buffer));
        *V_BSTRREF(&buffer) = SysAllocString(L"0000ABCD");
        VARIANT& length = call.argument(2);
        EXPECT_EQ(V_VT(&length), VT_BYREF | VT_I4);
        EXPECT_EQ(*V_I4REF(&length), 1024);
        *V_I4REF(&length) = 8;
        return S_OK;
    };
    Value text{std::wstring(1024, L'\0')};
    Value length{std::int32_t{1024}};
    Object(&partner).call(L"ConvertIdOrvel", {L"5.7", byRef(text), byRef(length)});
    EXPECT_EQ(text.text(), L"0000ABCD");
    EXPECT_EQ(length.int32(), 8);
}

TEST(Object, ArgumentByReference_NotWritten_StaysAsItWas)
{
    RawPartner partner({{L"Look", 1}});
    Value text{L"before"};
    Object(&partner).call(L"Look", {byRef(text)});
    EXPECT_EQ(partner.invocations.at(0).types, (std::vector<VARTYPE>{VT_BYREF | VT_BSTR}));
    EXPECT_EQ(text.text(), L"before");
}

TEST(Object, ReplacedDuringItsOwnCall_LivesUntilTheCallReturns)
{
    RawPartner partner({{L"Drop", 1}});
    Object held(&partner);
    partner.onCall = [&](const RawPartner::Call&) {
        held = Object();
        EXPECT_GT(partner.references, 1u);
        return S_OK;
    };
    held.call(L"Drop");
    EXPECT_FALSE(held);
    EXPECT_EQ(partner.references, 1u);
}

TEST(Object, OfAnUnknownClass_CannotBeCreated)
{
    try {
        Object::create(L"Nobody.HasRegistered.This");
        FAIL() << "no error";
    } catch (const AutomationError& error) {
        EXPECT_EQ(error.member(), L"Nobody.HasRegistered.This");
        EXPECT_EQ(error.code(), CO_E_CLASSSTRING);
    }
}

TEST(Object, FoundBehindAnyInterface_IsTheObject)
{
    RawPartner partner({{L"Name", 1}});
    Object::query(static_cast<IUnknown*>(&partner)).get(L"Name");
    EXPECT_EQ(partner.invocations.size(), 1u);
    EXPECT_FALSE(Object::query(nullptr));
}

#include "automation/error.h"
#include "automation/object.h"
#include "automation/value.h"
#include "support/failure.h"
#include "support/raw_partner.h"

#include <gtest/gtest.h>

using automation::AutomationError;
using automation::Object;
using automation::Value;
using support::RawPartner;

TEST(Value, Constructors_FixTheExactType)
{
    EXPECT_EQ(Value().type(), VT_EMPTY);
    EXPECT_EQ(Value(L"text").type(), VT_BSTR);
    EXPECT_EQ(Value(std::wstring(L"text")).type(), VT_BSTR);
    EXPECT_EQ(Value(std::int16_t{1}).type(), VT_I2);
    EXPECT_EQ(Value(std::int32_t{1}).type(), VT_I4);
    EXPECT_EQ(Value(1L).type(), VT_I4);
    EXPECT_EQ(Value(true).type(), VT_BOOL);
    EXPECT_EQ(Value(Object()).type(), VT_DISPATCH);
    EXPECT_EQ(Value::date(1).type(), VT_DATE);
}

TEST(Value, Boolean_IsMinusOneOrZero)
{
    EXPECT_EQ(V_BOOL(&Value(true).variant()), -1);
    EXPECT_EQ(V_BOOL(&Value(false).variant()), 0);
}

TEST(Value, Copy_HoldsATextOfItsOwn)
{
    Value first(L"text");
    const Value copy = first;
    EXPECT_NE(V_BSTR(&first.variant()), V_BSTR(&copy.variant()));
    first = Value(L"other");
    EXPECT_EQ(copy.text(), L"text");
    EXPECT_EQ(first.text(), L"other");
}

TEST(Value, CopyOfAnObject_HoldsAReferenceOfItsOwn)
{
    RawPartner partner;
    const Value value{Object(&partner)};
    EXPECT_EQ(partner.references, 2u);
    const Value copy = value;
    EXPECT_EQ(partner.references, 3u);
}

TEST(Value, MovedFrom_IsEmpty)
{
    Value first(L"text");
    const Value second = std::move(first);
    EXPECT_EQ(first.type(), VT_EMPTY);
    EXPECT_EQ(second.text(), L"text");
}

TEST(Value, Receive_FreesWhatWasHeld)
{
    RawPartner partner;
    Value value{Object(&partner)};
    EXPECT_EQ(V_VT(value.receive()), VT_EMPTY);
    EXPECT_EQ(partner.references, 1u);
}

TEST(Value, Release_GivesTheContentAway)
{
    Value value(L"text");
    VARIANT given = value.release();
    EXPECT_EQ(value.type(), VT_EMPTY);
    EXPECT_STREQ(V_BSTR(&given), L"text");
    VariantClear(&given);
}

TEST(Value, CopyOfAReference_FollowsIt)
{
    LONG number = 5;
    VARIANT reference;
    V_VT(&reference) = VT_BYREF | VT_I4;
    V_I4REF(&reference) = &number;
    const Value direct = Value::copyOf(reference);
    EXPECT_EQ(direct.type(), VT_I4);

    VARIANT wrapped;
    V_VT(&wrapped) = VT_BYREF | VT_VARIANT;
    V_VARIANTREF(&wrapped) = &reference;
    const Value twice = Value::copyOf(wrapped);
    number = 6;
    EXPECT_EQ(direct.int32(), 5);
    EXPECT_EQ(twice.int32(), 5);
}

TEST(Value, ByReference_PointsIntoItsTarget)
{
    Value text(L"before");
    Value number{std::int32_t{1}};
    {
        const Value toText = byRef(text);
        const Value toNumber = byRef(number);
        EXPECT_EQ(toText.type(), VT_BYREF | VT_BSTR);
        EXPECT_EQ(toNumber.type(), VT_BYREF | VT_I4);
        SysReAllocString(V_BSTRREF(&toText.variant()), L"after");
        *V_I4REF(&toNumber.variant()) = 2;
    }
    EXPECT_EQ(text.text(), L"after") << "the end of the reference frees nothing of its target";
    EXPECT_EQ(number.int32(), 2);
}

TEST(Value, Text_IsMadeOfEveryType)
{
    EXPECT_EQ(Value(std::wstring(L"a\0b", 3)).text(), std::wstring(L"a\0b", 3));
    EXPECT_EQ(Value(std::int16_t{-5}).text(), L"-5");
    EXPECT_EQ(Value(std::int32_t{70000}).text(), L"70000");
    EXPECT_EQ(Value::date(45000.25).text(), L"3/15/2023 6:00:00 AM");
    EXPECT_EQ(Value().text(), L"");
}

TEST(Value, TextOfANullString_IsEmpty)
{
    Value value;
    V_VT(value.receive()) = VT_BSTR;
    V_BSTR(const_cast<VARIANT*>(&value.variant())) = nullptr;
    EXPECT_EQ(value.text(), L"");
}

TEST(Value, Numbers_AreConvertedBetweenTypes)
{
    EXPECT_EQ(Value(L"12").int32(), 12);
    EXPECT_EQ(Value(std::int32_t{12}).int16(), 12);
    EXPECT_EQ(Value(true).int32(), -1);
    EXPECT_EQ(Value().int32(), 0);
    EXPECT_EQ(Value(L"2.5").number(), 2.5);
    EXPECT_EQ(Value(L"3/15/2023 6:00:00 AM").asDate(), 45000.25);
}

TEST(Value, Truth_IsAnythingButZero)
{
    EXPECT_TRUE(Value(std::int32_t{1}).isTrue());
    EXPECT_TRUE(Value(std::int16_t{-1}).isTrue());
    EXPECT_TRUE(Value(L"True").isTrue());
    EXPECT_FALSE(Value(L"False").isTrue());
    EXPECT_FALSE(Value(std::int32_t{0}).isTrue());
    EXPECT_FALSE(Value().isTrue());
}

TEST(Value, ConversionThatCannotBe_FailsWithItsCode)
{
    EXPECT_EQ(codeOf([] { Value(L"abc").int32(); }), DISP_E_TYPEMISMATCH);
    EXPECT_EQ(codeOf([] { Value(L"abc").isTrue(); }), DISP_E_TYPEMISMATCH);
    EXPECT_EQ(codeOf([] { Value(L"abc").number(); }), DISP_E_TYPEMISMATCH);
    EXPECT_EQ(codeOf([] { Value(L"abc").asDate(); }), DISP_E_TYPEMISMATCH);
    EXPECT_EQ(codeOf([] { Value(std::int32_t{70000}).int16(); }), DISP_E_OVERFLOW);
    EXPECT_EQ(codeOf([] { Value(L"2147483648").int32(); }), DISP_E_OVERFLOW);
}

TEST(Value, Nothing_HasNoTextAndNoNumber)
{
    EXPECT_THROW(Value(Object()).text(), AutomationError);
    EXPECT_THROW(Value(Object()).int32(), AutomationError);
}

TEST(Value, Object_IsTakenFromEitherInterface_AndFromNothing)
{
    RawPartner partner;
    EXPECT_EQ(Value(Object(&partner)).object().dispatch(), &partner);
    EXPECT_FALSE(Value(Object()).object());
    EXPECT_FALSE(Value().object());

    Value unknown;
    VARIANT* variant = unknown.receive();
    V_VT(variant) = VT_UNKNOWN;
    V_UNKNOWN(variant) = &partner;
    partner.AddRef();
    EXPECT_EQ(unknown.object().dispatch(), &partner);
}

TEST(Value, ObjectOfSomethingElse_IsATypeMismatch)
{
    EXPECT_EQ(codeOf([] { Value(L"text").object(); }), DISP_E_TYPEMISMATCH);
    EXPECT_EQ(codeOf([] { Value(std::int32_t{0}).object(); }), DISP_E_TYPEMISMATCH);
}

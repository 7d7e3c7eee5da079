#include "automation/array.h"

#include "automation/error.h"

#include <gtest/gtest.h>

using automation::AutomationError;
using automation::elementsOf;
using automation::Value;

namespace {

// A value that says it holds elements of the type `claimed`.
Value holding(SAFEARRAY* array, VARTYPE claimed)
{
    Value value;
    VARIANT* const variant = value.receive();
    V_VT(variant) = static_cast<VARTYPE>(VT_ARRAY | claimed);
    V_ARRAY(variant) = array;
    return value;
}

SAFEARRAY* vectorOfTexts()
{
    SAFEARRAY* const array = SafeArrayCreateVector(VT_BSTR, 0, 2);
    for (LONG index = 0; index < 2; ++index) {
        const BSTR text = SysAllocString(index == 0 ? L"one" : L"two");
        SafeArrayPutElement(array, &index, text);
        SysFreeString(text);
    }
    return array;
}

SAFEARRAY* vectorOfNumbers(VARTYPE type)
{
    SAFEARRAY* const array = SafeArrayCreateVector(type, 0, 2);
    for (LONG index = 0; index < 2; ++index) {
        LONG number = index + 7;
        SafeArrayPutElement(array, &index, &number);
    }
    return array;
}

// An array as old servers make it: it does not tell its elements' type.
SAFEARRAY* vectorWithoutType(ULONG elementSize)
{
    SAFEARRAY* array = nullptr;
    SafeArrayAllocDescriptor(1, &array);
    array->cbElements = elementSize;
    array->rgsabound[0] = {2, 0};
    SafeArrayAllocData(array);
    return array;
}

HRESULT failureOf(const Value& value)
{
    try {
        elementsOf(value);
    } catch (const AutomationError& error) {
        return error.code();
    }
    return S_OK;
}

}

TEST(Array, Elements_AreReadInMemoryOrder)
{
    const std::vector<Value> texts = elementsOf(holding(vectorOfTexts(), VT_BSTR));
    ASSERT_EQ(texts.size(), 2u);
    EXPECT_EQ(texts[0].text(), L"one");
    EXPECT_EQ(texts[1].text(), L"two");
}

TEST(Array, ThatTellsItsElementsType_IsReadAsThat_WhateverTheValueSays)
{
    for (const VARTYPE claimed : {VT_VARIANT, VT_I4, VT_DISPATCH}) {
        const std::vector<Value> texts = elementsOf(holding(vectorOfTexts(), claimed));
        ASSERT_EQ(texts.size(), 2u);
        EXPECT_EQ(texts[1].type(), VT_BSTR);
        EXPECT_EQ(texts[1].text(), L"two");
    }
    const std::vector<Value> numbers = elementsOf(holding(vectorOfNumbers(VT_I4), VT_BSTR));
    ASSERT_EQ(numbers.size(), 2u);
    EXPECT_EQ(numbers[0].type(), VT_I4);
    EXPECT_EQ(numbers[0].int32(), 7);
}

TEST(Array, ThatTellsNoType_IsReadAsTheValueSays)
{
    const std::vector<Value> numbers = elementsOf(holding(vectorWithoutType(sizeof(LONG)), VT_I4));
    ASSERT_EQ(numbers.size(), 2u);
    EXPECT_EQ(numbers[0].int32(), 0);
}

TEST(Array, ElementsOfAnotherSizeThanTheirType_AreATypeMismatch)
{
    EXPECT_EQ(failureOf(holding(vectorWithoutType(sizeof(LONG)), VT_R8)), DISP_E_TYPEMISMATCH);
    EXPECT_EQ(failureOf(holding(vectorWithoutType(2), VT_I4)), DISP_E_TYPEMISMATCH);
    SAFEARRAY* const shrunk = vectorOfNumbers(VT_I4);
    shrunk->cbElements = 1;
    const Value value = holding(shrunk, VT_I4);
    EXPECT_EQ(failureOf(value), DISP_E_TYPEMISMATCH);
    shrunk->cbElements = sizeof(LONG);
}

TEST(Array, ElementsOfAnUnknownType_AreATypeMismatch)
{
    for (const VARTYPE claimed : {VT_RECORD, VT_EMPTY, VT_NULL, VT_PTR})
        EXPECT_EQ(failureOf(holding(vectorWithoutType(4), claimed)), DISP_E_TYPEMISMATCH) << claimed;
}

TEST(Array, ValueThatIsNoArray_IsATypeMismatch)
{
    for (const Value& value : {Value(), Value(L"text"), Value(std::int32_t{7})})
        EXPECT_EQ(failureOf(value), DISP_E_TYPEMISMATCH);
}

TEST(Array, WithoutElements_GivesNone)
{
    EXPECT_TRUE(elementsOf(holding(SafeArrayCreateVector(VT_VARIANT, 0, 0), VT_VARIANT)).empty());
    EXPECT_TRUE(elementsOf(holding(nullptr, VT_VARIANT)).empty());
}

#include "common/softphone_id.h"

#include "automation/error.h"
#include "common/groupware_state.h"
#include "support/test_host.h"

#include <gtest/gtest.h>

namespace hublink {

namespace {

HRESULT codeOf(const wchar_t* text)
{
    try {
        softphoneIdFromText(text);
    } catch (const automation::AutomationError& error) {
        return error.code();
    }
    return S_OK;
}

void expectId(const wchar_t* text, std::int32_t high, std::int32_t low)
{
    const SoftphoneId id = softphoneIdFromText(text);
    EXPECT_EQ(id.IdHigh, high);
    EXPECT_EQ(id.IdLow, low);
}

}

TEST(SoftphoneId, TwoNumbers_AreWrittenWithADot)
{
    EXPECT_EQ(textFromSoftphoneId({5, 7}), L"5.7");
    EXPECT_EQ(textFromSoftphoneId({-1, 0}), L"-1.0");
    EXPECT_EQ(textFromSoftphoneId({INT32_MAX, INT32_MIN}), L"2147483647.-2147483648");
}

TEST(SoftphoneId, TwoParts_AreReadBack)
{
    expectId(L"5.7", 5, 7);
    expectId(L"-1.5", -1, 5);
    expectId(L"2147483647.-2147483648", INT32_MAX, INT32_MIN);
}

TEST(SoftphoneId, ThirdPart_IsNotLookedAt)
{
    expectId(L"5.7.9", 5, 7);
    expectId(L"5.7.nine", 5, 7);
}

TEST(SoftphoneId, FourParts_GiveZeroAndZero)
{
    expectId(L"5.7.9.11", 0, 0);
    expectId(L"a.b.c.d", 0, 0);
    expectId(L"1.2.3.4.5", 0, 0);
}

TEST(SoftphoneId, TextWithoutADot_Fails)
{
    EXPECT_NE(codeOf(L"57"), S_OK);
    EXPECT_NE(codeOf(L""), S_OK);
}

TEST(SoftphoneId, PartsThatAreNoNumbers_Fail)
{
    EXPECT_EQ(codeOf(L"a.7"), DISP_E_TYPEMISMATCH);
    EXPECT_EQ(codeOf(L"5.b"), DISP_E_TYPEMISMATCH);
    EXPECT_EQ(codeOf(L"."), DISP_E_TYPEMISMATCH);
    EXPECT_EQ(codeOf(L"5.2147483648"), DISP_E_OVERFLOW);
}

TEST(GroupwareState, FailureCounter_OverflowsWithAnErrorAndStays)
{
    GroupwareState state;
    TestHost host;
    countInitFailure(state, host);
    EXPECT_EQ(state.nbInitFailure, 1);
    state.nbInitFailure = INT16_MAX;
    try {
        countInitFailure(state, host);
        FAIL() << "no error";
    } catch (const automation::AutomationError& error) {
        EXPECT_EQ(error.code(), DISP_E_OVERFLOW);
    }
    EXPECT_EQ(state.nbInitFailure, INT16_MAX);
}

}

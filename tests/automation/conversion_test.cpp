// Conversions as the automation world does them. The figures hold for the
// en-US locale, in which the tests run.
#include "automation/conversion.h"
#include "automation/error.h"
#include "automation/text.h"
#include "support/failure.h"

#include <gtest/gtest.h>

#include <oleauto.h>

namespace {

constexpr DATE march15 = 45000; // 15 March 2023

}

TEST(Conversion, WholeNumberText_GivesTheNumber)
{
    EXPECT_EQ(automation::int16FromText(L"12"), 12);
    EXPECT_EQ(automation::int16FromText(L" 7 "), 7);
    EXPECT_EQ(automation::int16FromText(L"+5"), 5);
    EXPECT_EQ(automation::int16FromText(L"-5"), -5);
}

TEST(Conversion, HalfNumberText_IsRoundedToEven)
{
    EXPECT_EQ(automation::int16FromText(L"2.5"), 2);
    EXPECT_EQ(automation::int16FromText(L"3.5"), 4);
}

TEST(Conversion, NumberTextBeyond16Bits_Overflows)
{
    EXPECT_EQ(codeOf([] { automation::int16FromText(L"70000"); }), DISP_E_OVERFLOW);
    EXPECT_EQ(codeOf([] { automation::int16FromText(L"32768"); }), DISP_E_OVERFLOW);
    EXPECT_EQ(automation::int16FromText(L"32767"), 32767);
    EXPECT_EQ(automation::int16FromText(L"-32768"), -32768);
}

TEST(Conversion, TextThatIsNoNumber_IsATypeMismatch)
{
    for (const wchar_t* text : {L"abc", L"12abc", L"", L" "})
        EXPECT_EQ(codeOf([&] { automation::int16FromText(text); }), DISP_E_TYPEMISMATCH) << automation::toAnsi(text);
}

TEST(Conversion, NumberTextOf32Bits_GivesTheNumber)
{
    EXPECT_EQ(automation::int32FromText(L"70000"), 70000);
    EXPECT_EQ(automation::int32FromText(L"-2147483648"), INT32_MIN);
    EXPECT_EQ(codeOf([] { automation::int32FromText(L"2147483648"); }), DISP_E_OVERFLOW);
    EXPECT_EQ(codeOf([] { automation::int32FromText(L"one"); }), DISP_E_TYPEMISMATCH);
}

TEST(Conversion, DateAndTime_AreShownInTheUsersFormats)
{
    EXPECT_EQ(automation::textFromDate(march15 + 0.25), L"3/15/2023 6:00:00 AM");
}

TEST(Conversion, Midnight_ShowsNoTime)
{
    EXPECT_EQ(automation::textFromDate(march15), L"3/15/2023");
}

TEST(Conversion, Boolean_IsTrueOrFalseInWords)
{
    EXPECT_EQ(automation::textFromBoolean(true), L"True");
    EXPECT_EQ(automation::textFromBoolean(false), L"False");
}

TEST(Conversion, Now_IsTheLocalTimeInWholeSeconds)
{
    const auto asDate = [](SYSTEMTIME time) {
        time.wMilliseconds = 0;
        DATE date = 0;
        SystemTimeToVariantTime(&time, &date);
        return date;
    };
    SYSTEMTIME before;
    SYSTEMTIME after;
    GetLocalTime(&before);
    const DATE now = automation::now();
    GetLocalTime(&after);
    EXPECT_GE(now, asDate(before));
    EXPECT_LE(now, asDate(after));
}

TEST(Text, AnsiAndBack_KeepsWhatTheCodePageHas)
{
    EXPECT_EQ(automation::toAnsi(L"r\u00E9pondu"), "r\xE9pondu");
    EXPECT_EQ(automation::toWide("r\xE9pondu"), L"r\u00E9pondu");
    EXPECT_EQ(automation::toAnsi(L""), "");
    EXPECT_EQ(automation::toWide(""), L"");
}

TEST(Text, CharacterOutsideTheCodePage_BecomesItsDefault)
{
    EXPECT_EQ(automation::toAnsi(L"\u6F22"), "?");
}

TEST(Text, Comparison_IgnoresCaseAndNothingElse)
{
    EXPECT_TRUE(automation::equalIgnoringCase(L"PAVEX.exe", L"pavex.EXE"));
    EXPECT_TRUE(automation::equalIgnoringCase(L"\u00C9t\u00E9", L"\u00E9T\u00C9"));
    EXPECT_FALSE(automation::equalIgnoringCase(L"pavex.exe", L"pavex.exe "));
    EXPECT_FALSE(automation::equalIgnoringCase(L"pavex", L"pavex.exe"));
    EXPECT_FALSE(automation::equalIgnoringCase(L"a", L"b"));
    EXPECT_TRUE(automation::equalIgnoringCase(L"", L""));
}

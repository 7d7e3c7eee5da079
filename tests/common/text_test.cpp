#include "common/phone_number.h"
#include "common/text.h"

#include <gtest/gtest.h>

namespace hublink {

namespace {

using Parts = std::vector<std::wstring>;

}

TEST(StripPhoneNumber, DotsAndBlanks_AreAllRemoved)
{
    EXPECT_EQ(StripPhoneNumber(L"01 23.45 67"), L"01234567");
    EXPECT_EQ(StripPhoneNumber(L"..1  2 . 3.. "), L"123");
}

TEST(StripPhoneNumber, EverythingElse_Stays)
{
    EXPECT_EQ(StripPhoneNumber(L"+33 (1) 23"), L"+33(1)23");
    EXPECT_EQ(StripPhoneNumber(L"0-1/2,3;4x\t5*#"), L"0-1/2,3;4x\t5*#");
    EXPECT_EQ(StripPhoneNumber(L"1\u00A02"), L"1\u00A02") << "a no-break space is no blank";
}

TEST(StripPhoneNumber, EmptyText_StaysEmpty)
{
    EXPECT_EQ(StripPhoneNumber(L""), L"");
    EXPECT_EQ(StripPhoneNumber(L" . "), L"");
}

TEST(StripPhoneNumber, ItsArgument_IsNotChanged)
{
    const std::wstring number = L"01 23";
    StripPhoneNumber(number);
    EXPECT_EQ(number, L"01 23");
}

TEST(Split, Parts_AreNeitherTrimmedNorDropped)
{
    EXPECT_EQ(split(L"OUTLOOK,LOTUS", L','), (Parts{L"OUTLOOK", L"LOTUS"}));
    EXPECT_EQ(split(L"LOTUS, OUTLOOK", L','), (Parts{L"LOTUS", L" OUTLOOK"}));
    EXPECT_EQ(split(L",a,,b,", L','), (Parts{L"", L"a", L"", L"b", L""}));
}

TEST(Split, TextWithoutSeparator_IsOnePart)
{
    EXPECT_EQ(split(L"OUTLOOK", L','), (Parts{L"OUTLOOK"}));
}

TEST(Split, EmptyText_HasNoParts)
{
    EXPECT_TRUE(split(L"", L',').empty());
}

TEST(IsOneOf, WholeWordInTheSameCase_IsFound_AndNoOther)
{
    EXPECT_TRUE(isOneOf(L"on", {L"yes", L"on"}));
    EXPECT_TRUE(isOneOf(L"", {L"yes", L""}));
    for (const wchar_t* other : {L"On", L"o", L"on ", L""}) EXPECT_FALSE(isOneOf(other, {L"yes", L"on"}));
}

TEST(ReplaceAll, EveryOccurrence_IsReplaced)
{
    EXPECT_EQ(replaceAll(L"<a> and <a><a>", L"<a>", L"b"), L"b and bb");
    EXPECT_EQ(replaceAll(L"<a>", L"<a>", L""), L"");
}

TEST(ReplaceAll, Case_Matters)
{
    EXPECT_EQ(replaceAll(L"<A> <a>", L"<a>", L"b"), L"<A> b");
}

TEST(ReplaceAll, WhatAReplacementBringsIn_IsNotReplacedAgain)
{
    EXPECT_EQ(replaceAll(L"<a>", L"<a>", L"<a><a>"), L"<a><a>");
    EXPECT_EQ(replaceAll(L"aaa", L"aa", L"a"), L"aa");
}

TEST(ReplaceAll, EmptySearchText_ReplacesNothing)
{
    EXPECT_EQ(replaceAll(L"text", L"", L"x"), L"text");
}

}

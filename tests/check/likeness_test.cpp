// Misspelt names.
#include "check/likeness.h"

#include <gtest/gtest.h>

namespace hublink::check {

TEST(Likeness, OfAFewLetters_IsSeen)
{
    EXPECT_TRUE(areAlike(L"PopUp", L"popup"));
    EXPECT_TRUE(areAlike(L"Pop_Up", L"PopUp"));
    EXPECT_TRUE(areAlike(L"kil", L"kill"));
    EXPECT_TRUE(areAlike(L"TryConxNumber", L"TryCnxNumber"));
    EXPECT_TRUE(areAlike(L"RegisterDllExtension", L"RegisteDllExtension"));
}

TEST(Likeness, OfOtherNames_IsNot)
{
    EXPECT_FALSE(areAlike(L"Anna", L"base"));
    EXPECT_FALSE(areAlike(L"fill", L"type"));
    EXPECT_FALSE(areAlike(L"", L"kill"));
    EXPECT_FALSE(areAlike(L"x", L"y"));
    EXPECT_FALSE(areAlike(std::wstring(100'000, L'x'), L"kill"));
}

}

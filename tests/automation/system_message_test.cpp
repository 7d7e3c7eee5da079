#include "automation/system_message.h"

#include <gtest/gtest.h>

using automation::systemMessage;

TEST(SystemMessage, OfAnError_IsASentenceWithoutItsFullStop_AndTheNumber)
{
    const std::wstring message = systemMessage(ERROR_ACCESS_DENIED);
    const std::wstring number = L" (5)";
    ASSERT_TRUE(message.ends_with(number));
    const std::wstring words = message.substr(0, message.size() - number.size());
    EXPECT_NE(words, L"");
    EXPECT_EQ(words.find_last_not_of(L"\r\n ."), words.size() - 1);
}

TEST(SystemMessage, OfACodeThatWindowsDoesNotKnow_IsTheNumber)
{
    EXPECT_EQ(systemMessage(0x2000'0001), L"(536870913)");
}

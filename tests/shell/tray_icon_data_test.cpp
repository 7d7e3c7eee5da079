// The shell's record of the icon.
#include "shell/tray_icon_data.h"

#include <gtest/gtest.h>

#include <cstddef>

namespace hublink {

namespace {

std::string tipOf(const std::string& text)
{
    const TrayIconData data = FillTrayIconData(nullptr, 1, 7, 0x200, nullptr, text);
    return std::string(data.szTip, sizeof data.szTip);
}

}

TEST(TrayIconData, Record_HasItsSmallestLayout)
{
    EXPECT_EQ(sizeof(TrayIconData), 88u);
    EXPECT_EQ(offsetof(TrayIconData, hWnd), 4u);
    EXPECT_EQ(offsetof(TrayIconData, uID), 8u);
    EXPECT_EQ(offsetof(TrayIconData, uFlags), 12u);
    EXPECT_EQ(offsetof(TrayIconData, uCallbackMessage), 16u);
    EXPECT_EQ(offsetof(TrayIconData, hIcon), 20u);
    EXPECT_EQ(offsetof(TrayIconData, szTip), 24u);
    EXPECT_EQ(sizeof(TrayIconData::szTip), 64u);
}

TEST(TrayIconData, Fields_AreFilledAsGiven)
{
    const auto window = reinterpret_cast<HWND>(0x1234);
    const auto icon = reinterpret_cast<HICON>(0x5678);
    const TrayIconData data = FillTrayIconData(window, 1, 7, 0x200, icon, "tip");
    EXPECT_EQ(data.cbSize, 88u);
    EXPECT_EQ(data.hWnd, window);
    EXPECT_EQ(data.uID, 1u);
    EXPECT_EQ(data.uFlags, 7u);
    EXPECT_EQ(data.uCallbackMessage, 0x200u);
    EXPECT_EQ(data.hIcon, icon);
}

TEST(TrayIconData, ShortTip_IsPaddedBehindItsTerminator)
{
    const std::string tip("Orvel - Hublink\0", 16);
    EXPECT_EQ(tipOf(tip), tip + std::string(48, ' '));
}

TEST(TrayIconData, LongTip_IsCutTo64Characters)
{
    EXPECT_EQ(tipOf(std::string(70, 'a')), std::string(64, 'a'));
    EXPECT_EQ(tipOf(std::string(64, 'a')), std::string(64, 'a'));
}

}

#include "desk/common/text.h"
#include "desk/player/morning.h"

#include <gtest/gtest.h>

TEST(Morning, EverythingArrives)
{
    desk::player::Desk desk;
    desk::player::Narrator narrator;
    desk::player::Morning(desk, narrator).play();
    EXPECT_EQ(narrator.missing(), 0) << desk::utf8(narrator.missed());
}

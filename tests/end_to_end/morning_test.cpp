#include "desk/common/text.h"
#include "desk/player/morning.h"

#include <gtest/gtest.h>

// With one groupware alone it is ./run --outlook and ./run --lotus.
TEST(Morning, WithBothGroupware_EverythingArrives)
{
    desk::player::Desk desk;
    desk::player::Narrator narrator;
    desk::player::Morning(desk, narrator, {.outlook = true, .notes = true}).play();
    EXPECT_EQ(narrator.missing(), 0) << desk::utf8(narrator.missed());
}

#include "desk/common/text.h"
#include "desk/player/morning.h"

#include <gtest/gtest.h>

// With one groupware alone it is ./run --outlook and ./run --lotus.
TEST(Morning, WithBothGroupware_EverythingArrives)
{
    desk::player::Desk desk;
    // The pauses between records are most of the time, and have tests of their own.
    desk.setDefault("Application", "tempo", "20");
    desk.setDefault("Application", "tempo1", "0");
    desk::player::Narrator narrator;
    desk::player::Morning(desk, narrator, {.outlook = true, .notes = true}).play();
    EXPECT_EQ(narrator.missing(), 0) << desk::utf8(narrator.missed());
}

#include "desk/common/text.h"
#include "desk/player/morning.h"

#include <gtest/gtest.h>

namespace {

void play(desk::player::GroupwareInUse groupware)
{
    desk::player::Desk desk;
    desk::player::Narrator narrator;
    desk::player::Morning(desk, narrator, groupware).play();
    EXPECT_EQ(narrator.missing(), 0) << desk::utf8(narrator.missed());
}

}

TEST(Morning, WithBothGroupware_EverythingArrives)
{
    play({.outlook = true, .notes = true});
}

TEST(Morning, WithOutlookAlone_EverythingArrives)
{
    play({.outlook = true, .notes = false});
}

TEST(Morning, WithNotesAlone_EverythingArrives)
{
    play({.outlook = false, .notes = true});
}

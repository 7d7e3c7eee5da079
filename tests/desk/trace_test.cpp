#include "desk_test.h"

namespace {

class Trace : public DeskTest {
protected:
    void startWithTrace()
    {
        desk.startSoftphone();
        desk.startOutlook();
        desk::player::writeFile(desk.iniFile(), "[Application]\r\ntype=OUTLOOK\r\ntrace=true\r\n");
        desk.startHublink();
    }
};

}

TEST_F(Trace, EveryLogLine_IsShownAndWaitsForTheUser_AndTheEndIsAnnounced)
{
    startWithTrace();
    EXPECT_TRUE(boxShows(L"First Init Outlook"));
    EXPECT_TRUE(boxShows(L"Start Connector Initialization"));
    EXPECT_TRUE(boxShows(L"Connector Initialization  Ok"));
    ASSERT_TRUE(desk::player::waitUntil([] { return idle(); }, soon));
    PostMessageW(FindWindowW(L"Hublink", nullptr), WM_CLOSE, 0, 0);
    EXPECT_TRUE(boxShows(L"Stop Connector"));
    desk.tick();
    EXPECT_TRUE(boxShows(L"The End !!!"));
    EXPECT_TRUE(ends());
}

TEST_F(Trace, BoxLeftOpenForAMinute_BoxesDoNotPileUp_AndCallsAreServed)
{
    startWithTrace();
    EXPECT_TRUE(boxShows(L"First Init Outlook"));
    EXPECT_TRUE(boxShows(L"Start Connector Initialization"));
    EXPECT_TRUE(boxShows(L"Connector Initialization  Ok"));
    desk::player::waitFor(300);
    desk.softphone(L"die"); // withdrawn first: a killed class stays dead for a while under some systems
    desk.tick();
    ASSERT_TRUE(desk::player::waitUntil([] { return !desk::player::messageBoxes(L"Hublink").empty(); }, soon));
    EXPECT_EQ(desk::player::messageBoxes(L"Hublink")[0].text, L"Stop Connector Pavex HS");
    for (int ticks = 0; ticks < 12; ++ticks) desk.tick(); // a minute of them
    desk::player::waitFor(500);
    EXPECT_EQ(desk::player::messageBoxes(L"Hublink").size(), 1u);
    EXPECT_TRUE(desk.hublinkProcess().running());
    EXPECT_TRUE(boxShows(L"Stop Connector Pavex HS"));
    EXPECT_TRUE(boxShows(L"Stop Connector"));
}

TEST_F(Trace, EndAnnounced_MoreTicks_AnnounceItOnce)
{
    startWithTrace();
    EXPECT_TRUE(boxShows(L"First Init Outlook"));
    EXPECT_TRUE(boxShows(L"Start Connector Initialization"));
    EXPECT_TRUE(boxShows(L"Connector Initialization  Ok"));
    desk::player::waitFor(300);
    PostMessageW(FindWindowW(L"Hublink", nullptr), WM_CLOSE, 0, 0);
    EXPECT_TRUE(boxShows(L"Stop Connector"));
    for (int ticks = 0; ticks < 5; ++ticks) desk.tick();
    desk::player::waitFor(500);
    EXPECT_EQ(desk::player::messageBoxes(L"Hublink").size(), 1u);
    EXPECT_TRUE(boxShows(L"The End !!!"));
    EXPECT_TRUE(ends());
}

// The stop request, and the end of the process.
#include "form_fixture.h"

namespace hublink {

using shell_tests::iniText;

namespace {

class Stop : public shell_tests::FormFixture {
protected:
    void start(bool trace = true)
    {
        writeIni(iniText(trace ? "trace=true\r\n" : ""));
        load();
        form().softphone().hashID = automation::Object(&map);
        boxes.clear();
    }

    std::size_t calls(const support::RawPartner& partner, DISPID id) const
    {
        std::size_t count = 0;
        for (const auto& invocation : partner.invocations) count += invocation.id == id;
        return count;
    }
};

constexpr DISPID quit = 1;
constexpr DISPID createItem = 2;

}

TEST_F(Stop, Request_SetsTheFlag_AndLogs)
{
    start();
    form().StopConnector();
    EXPECT_TRUE(configuration().gStop);
    EXPECT_EQ(boxTexts(), (std::vector<std::wstring>{L"Stop Connector"}));
    EXPECT_EQ(ended, 0);
}

TEST_F(Stop, Request_WithQuitOutlook_QuitsItWithTheSessionClosedBefore)
{
    start();
    openOutlook();
    form().outlook().bQuitOutlook = true;
    bool wasOpen = true;
    bool wasStopping = false;
    outlook.onCall = [&](const support::RawPartner::Call&) {
        wasOpen = form().outlook().bOutlookInit;
        wasStopping = configuration().gStop;
        return S_OK;
    };
    form().StopConnector();
    ASSERT_EQ(outlook.invocations.size(), 1u);
    EXPECT_EQ(outlook.invocations[0].id, quit);
    EXPECT_TRUE(outlook.invocations[0].types.empty());
    EXPECT_FALSE(wasOpen);
    EXPECT_TRUE(wasStopping);
    EXPECT_TRUE(wasShown(L"Stop Connector"));
}

TEST_F(Stop, Request_WithoutQuitOutlook_LeavesOutlookRunning)
{
    start();
    openOutlook();
    form().StopConnector();
    EXPECT_FALSE(form().outlook().bOutlookInit);
    EXPECT_EQ(calls(outlook, quit), 0u);
    EXPECT_TRUE(wasShown(L"Stop Connector"));
}

TEST_F(Stop, Request_WithNoSessionOpen_QuitsNothing)
{
    start();
    openOutlook();
    form().outlook().bOutlookInit = false;
    form().outlook().bQuitOutlook = true;
    form().StopConnector();
    EXPECT_TRUE(outlook.invocations.empty());
    EXPECT_TRUE(wasShown(L"Stop Connector"));
}

TEST_F(Stop, RequestsLogLine_NeverReachesOutlook)
{
    start();
    openOutlook();
    form().StopConnector();
    EXPECT_EQ(calls(outlook, createItem), 0u);
    EXPECT_TRUE(logItem.invocations.empty());
}

TEST_F(Stop, RequestWithAFailingQuit_EndsBeforeItsLogLine_AndStaysAsked)
{
    start();
    openOutlook();
    form().outlook().bQuitOutlook = true;
    outlook.onCall = [](const support::RawPartner::Call&) { return HRESULT_FROM_WIN32(RPC_S_SERVER_UNAVAILABLE); };
    form().StopConnector();
    EXPECT_TRUE(boxes.empty());
    EXPECT_TRUE(configuration().gStop);
    EXPECT_FALSE(form().outlook().bOutlookInit);
}

TEST_F(Stop, SecondRequest_DoesNotQuitOutlookAgain)
{
    start();
    openOutlook();
    form().outlook().bQuitOutlook = true;
    form().StopConnector();
    form().StopConnector();
    EXPECT_EQ(calls(outlook, quit), 1u);
}

TEST_F(Stop, NextTick_EndsTheProgram)
{
    start(false);
    form().StopConnector();
    EXPECT_EQ(ended, 0);
    tick();
    EXPECT_EQ(ended, 1);
    EXPECT_TRUE(boxes.empty());
}

TEST_F(Stop, End_TellsTheMap_TakesTheIconAway_ShowsTheEnd_ThenEnds)
{
    start();
    EXPECT_TRUE(iconIsShown());
    map.onCall = [&](const support::RawPartner::Call& call) {
        EXPECT_EQ(call.parameters.cArgs, 0u);
        EXPECT_TRUE(iconIsShown());
        EXPECT_TRUE(boxes.empty());
        return S_OK;
    };
    onBox = [&](const std::wstring&) {
        EXPECT_FALSE(iconIsShown());
        EXPECT_EQ(ended, 0);
        return IDOK;
    };
    form().shutdown().StopAll();
    EXPECT_EQ(map.lookUps, (std::vector<std::wstring>{L"StopOrvelConvertId"}));
    EXPECT_EQ(map.invocations.size(), 1u);
    ASSERT_EQ(boxes.size(), 1u);
    EXPECT_EQ(boxes[0].text, L"The End !!!");
    EXPECT_EQ(boxes[0].flags, UINT{MB_OK});
    EXPECT_EQ(ended, 1);
}

TEST_F(Stop, End_WithTraceOff_ShowsNothing)
{
    start(false);
    form().shutdown().StopAll();
    EXPECT_TRUE(boxes.empty());
    EXPECT_EQ(ended, 1);
}

TEST_F(Stop, EndWithoutAMap_GivesUpQuietlyOnce_ThenGoesOn)
{
    start();
    form().softphone().hashID = automation::Object();
    form().StopConnector();
    boxes.clear();
    tick();
    EXPECT_EQ(ended, 0);
    EXPECT_TRUE(boxes.empty());
    EXPECT_TRUE(iconIsShown());
    tick();
    EXPECT_EQ(boxTexts(), (std::vector<std::wstring>{L"The End !!!"}));
    EXPECT_FALSE(iconIsShown());
    EXPECT_EQ(ended, 1);
}

TEST_F(Stop, EndWithADeadMap_GivesUpQuietlyOnce_ThenGoesOn)
{
    start(false);
    map.onCall = [](const support::RawPartner::Call&) { return HRESULT_FROM_WIN32(RPC_S_SERVER_UNAVAILABLE); };
    form().StopConnector();
    tick();
    EXPECT_EQ(ended, 0);
    tick();
    EXPECT_EQ(ended, 1);
}

TEST_F(Stop, TicksWhileTheEndIsShown_ShowItNoSecondTime)
{
    start();
    form().StopConnector();
    boxes.clear();
    onBox = [&](const std::wstring&) {
        if (boxes.size() > 3) return IDOK; // enough is shown
        tick();
        tick();
        return IDOK;
    };
    tick();
    EXPECT_EQ(boxTexts(), (std::vector<std::wstring>{L"The End !!!"}));
    EXPECT_EQ(ended, 1);
    EXPECT_EQ(map.invocations.size(), 1u);
}

TEST_F(Stop, EndOfTheForm_AsksForAStop)
{
    start();
    form().Form_Terminate();
    EXPECT_TRUE(configuration().gStop);
    EXPECT_TRUE(wasShown(L"Stop Connector"));
}

TEST_F(Stop, LinkAskedToStop_AsksForAStop)
{
    start();
    form().link().Kill();
    EXPECT_TRUE(configuration().gStop);
    EXPECT_TRUE(wasShown(L"Stop Connector"));
}

TEST_F(Stop, EndWhoseBoxFails_LeavesTheNextTickFreeToStartAfresh)
{
    start();
    form().StopConnector();
    boxes.clear();
    onBox = [](const std::wstring&) -> int { throw std::bad_alloc(); };
    tick();
    EXPECT_EQ(ended, 0);
    onBox = nullptr;
    tick();
    EXPECT_EQ(boxTexts(), (std::vector<std::wstring>{L"The End !!!", L"The End !!!"}));
    EXPECT_EQ(ended, 1);
    EXPECT_EQ(map.invocations.size(), 1u) << "the map server has been told";
}

TEST_F(Stop, EventsBetweenTheRequestAndTheEnd_AreHandled)
{
    start();
    bool eventCame = false;
    form().StopConnector();
    form().defer([&] { eventCame = true; });
    pump();
    EXPECT_TRUE(eventCame);
    EXPECT_EQ(ended, 0);
}

}

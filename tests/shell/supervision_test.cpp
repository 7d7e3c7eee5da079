// The supervision tick.
#include "form_fixture.h"

#include "automation/outgoing_call.h"
#include "support/handle_count.h"
#include "support/trapped_errors.h"

#include <algorithm>

namespace hublink {

using shell_tests::iniText;

namespace {

class SupervisionTick : public shell_tests::FormFixture {
protected:
    void start(const std::string& content = iniText("trace=true\r\n"))
    {
        writeIni(content);
        load();
        boxes.clear();
    }

    void startSoftphone() { softphone.emplace(folder, L"Pavex.exe"); }
    void startOutlook() { outlookProgram.emplace(folder, L"Outlook.EXE"); }

    std::optional<support::DummyProgram> softphone;
    std::optional<support::DummyProgram> outlookProgram;
};

}

TEST_F(SupervisionTick, EverythingAsBefore_DoesNothing)
{
    startSoftphone();
    start();
    for (int time = 0; time < 3; ++time) tick();
    EXPECT_TRUE(boxes.empty());
    EXPECT_FALSE(configuration().gStop);
    EXPECT_EQ(ended, 0);
}

TEST_F(SupervisionTick, HundredsOfTicks_GainNoHandle)
{
    startSoftphone();
    startOutlook();
    start(iniText());
    openOutlook();
    tick();
    const int before = support::openHandles();
    for (int time = 0; time < 300; ++time) tick();
    EXPECT_EQ(support::openHandles(), before);
    EXPECT_TRUE(form().outlook().bOutlookInit);
}

TEST_F(SupervisionTick, SoftphoneGone_IsLogged_AndEndsTheProgramAtTheNextTick)
{
    startSoftphone();
    start();
    form().softphone().hashID = automation::Object(&map);
    softphone->end();
    tick();
    EXPECT_EQ(boxTexts(), (std::vector<std::wstring>{L"Stop Connector Pavex HS", L"Stop Connector"}));
    EXPECT_TRUE(configuration().gStop);
    EXPECT_EQ(ended, 0);
    tick();
    EXPECT_EQ(ended, 1);
}

TEST_F(SupervisionTick, SoftphoneGone_TheTickGoesOnWithItsSteps)
{
    start();
    touchIni();
    tick();
    EXPECT_TRUE(configuration().gStop);
    EXPECT_TRUE(wasShown(L"Reload Ini data"));
}

TEST_F(SupervisionTick, BeforeTheProcessWatchIsReady_ATickOnlyStops)
{
    form().supervision().SupervisionPavex_Timer();
    EXPECT_FALSE(configuration().gStop) << "the missing softphone is not looked for yet";
    form().supervision().initProcessHandle();
    form().supervision().SupervisionPavex_Timer();
    EXPECT_TRUE(configuration().gStop);
}

TEST_F(SupervisionTick, BeforeTheProcessWatchIsReady_AStopIsCarriedOut)
{
    form().softphone().hashID = automation::Object(&map);
    form().StopConnector();
    form().supervision().SupervisionPavex_Timer();
    EXPECT_EQ(ended, 1);
}

TEST_F(SupervisionTick, OutlookGone_DropsTheSession)
{
    startSoftphone();
    start();
    openOutlook();
    tick();
    EXPECT_FALSE(form().outlook().bOutlookInit);
    EXPECT_FALSE(form().outlook().OutlookApp);
    EXPECT_TRUE(boxes.empty());
    EXPECT_TRUE(outlook.invocations.empty()) << "the Outlook that went is not called";
}

TEST_F(SupervisionTick, OutlookRunningWithAnOpenSession_IsLeftAlone)
{
    startSoftphone();
    startOutlook();
    start();
    openOutlook();
    tick();
    EXPECT_TRUE(form().outlook().bOutlookInit);
    EXPECT_EQ(form().outlook().OutlookApp.dispatch(), &outlook);
    EXPECT_TRUE(boxes.empty());
}

TEST_F(SupervisionTick, OutlookBack_InitialisesTheConnectorAgain)
{
    startSoftphone();
    start();
    tick();
    EXPECT_FALSE(wasShown(L"Start Connector Initialization"));
    startOutlook();
    tick();
    EXPECT_TRUE(wasShown(L"Start Connector Initialization"));
    EXPECT_FALSE(wasShown(L"Reload Ini data"));
}

TEST_F(SupervisionTick, OutlookRestartedBetweenTwoTicks_DropsTheSession_TheNextTickInitialisesAgain)
{
    startSoftphone();
    startOutlook();
    start();
    openOutlook();
    tick();
    ASSERT_TRUE(form().outlook().bOutlookInit);
    outlookProgram->end();
    startOutlook();
    tick();
    EXPECT_FALSE(form().outlook().bOutlookInit || form().outlook().OutlookApp);
    EXPECT_FALSE(wasShown(L"Start Connector Initialization"));
    tick();
    EXPECT_TRUE(wasShown(L"Start Connector Initialization"));
}

TEST_F(SupervisionTick, SoftphoneRestartedBetweenTwoTicks_StopsTheConnectorAsItsExitDoes)
{
    startSoftphone();
    start();
    tick();
    softphone->end();
    startSoftphone();
    tick();
    EXPECT_EQ(boxTexts(), (std::vector<std::wstring>{L"Stop Connector Pavex HS", L"Stop Connector"}));
    EXPECT_TRUE(configuration().gStop);
}

TEST_F(SupervisionTick, OutlookSwitchedOff_IsNotWatched)
{
    startSoftphone();
    start(iniText("trace=true\r\n", "", "type=LOTUS\r\n"));
    openOutlook();
    tick();
    EXPECT_TRUE(form().outlook().bOutlookInit);
    form().outlook().bOutlookInit = false;
    startOutlook();
    tick();
    EXPECT_FALSE(wasShown(L"Start Connector Initialization"));
}

TEST_F(SupervisionTick, TouchedIniFile_IsReloaded_ThoughNothingChangedInIt)
{
    startSoftphone();
    startOutlook();
    start();
    openOutlook();
    boxes.clear();
    touchIni();
    tick();
    EXPECT_TRUE(wasShown(L"Reload Ini data"));
    EXPECT_TRUE(wasShown(L"Pb Init Outlook")) << "the session is initialised anew, in vain here";
    EXPECT_FALSE(form().outlook().bOutlookInit);
}

TEST_F(SupervisionTick, ReloadedIniFile_IsReadOnce)
{
    startSoftphone();
    start();
    touchIni();
    tick();
    boxes.clear();
    tick();
    EXPECT_TRUE(boxes.empty());
}

TEST_F(SupervisionTick, ChangedIniFile_TakesEffect)
{
    startSoftphone();
    start(iniText("tempo=111\r\n"));
    writeIni(iniText("tempo=222\r\n", "PopUp=true\r\n"));
    touchIni();
    tick();
    EXPECT_EQ(configuration().tempo, 222);
    EXPECT_TRUE(configuration().bgWithPopUp);
    EXPECT_TRUE(boxes.empty()) << "trace is off: no box";
}

TEST_F(SupervisionTick, IniFileWithAnOlderTime_IsReloadedToo)
{
    startSoftphone();
    start();
    touchIni();
    tick();
    boxes.clear();
    const FILETIME longAgo{0, 0x01000000};
    const HANDLE file = CreateFileW(iniPath().c_str(), FILE_WRITE_ATTRIBUTES, 0, nullptr, OPEN_EXISTING, 0, nullptr);
    SetFileTime(file, nullptr, nullptr, &longAgo);
    CloseHandle(file);
    tick();
    EXPECT_TRUE(wasShown(L"Reload Ini data"));
}

TEST_F(SupervisionTick, KillInTheReloadedFile_StopsTheProgram)
{
    startSoftphone();
    start();
    form().softphone().hashID = automation::Object(&map);
    writeIni(iniText("trace=true\r\nkill=true\r\n"));
    touchIni();
    tick();
    EXPECT_TRUE(configuration().gStop);
    EXPECT_TRUE(wasShown(L"Stop Connector"));
    EXPECT_EQ(iniValue("Application", "kill"), L"false");
    tick();
    EXPECT_EQ(ended, 1);
}

TEST_F(SupervisionTick, KillInTheReloadedFile_TheSessionsAreInitialisedAnewAllTheSame)
{
    startSoftphone();
    startOutlook();
    start();
    openOutlook();
    form().lotus().LotusMustInit = false;
    writeIni(iniText("trace=true\r\nkill=true\r\n"));
    touchIni();
    tick();
    EXPECT_EQ(boxTexts(), (std::vector<std::wstring>{L"Reload Ini data", L"Stop Connector", L"ReInit Outlook",
                                                     L"Pb Init Outlook"}));
    EXPECT_TRUE(form().lotus().LotusMustInit);
}

TEST_F(SupervisionTick, ReloadedFileWithoutAGroupware_StopsTheProgram)
{
    startSoftphone();
    start();
    writeIni("[Application]\r\ntype=\r\n");
    touchIni();
    tick();
    EXPECT_TRUE(configuration().gStop);
}

TEST_F(SupervisionTick, MissingIniFile_ChangesNothing_UntilItIsBack)
{
    startSoftphone();
    start();
    const std::string content = support::readFile(iniPath());
    DeleteFileW(iniPath().c_str());
    tick();
    tick();
    EXPECT_TRUE(boxes.empty());
    EXPECT_FALSE(configuration().gStop);
    writeIni(content);
    touchIni();
    tick();
    EXPECT_TRUE(wasShown(L"Reload Ini data"));
}

TEST_F(SupervisionTick, TickInsideATicksMessageBox_OpensNoSecondBox)
{
    start();
    int depth = 0;
    int deepest = 0;
    onBox = [&](const std::wstring&) {
        deepest = std::max(deepest, ++depth);
        if (depth < 5) tick();
        --depth;
        return IDOK;
    };
    tick();
    EXPECT_EQ(deepest, 1);
    EXPECT_EQ(boxTexts(), (std::vector<std::wstring>{L"Stop Connector Pavex HS", L"Stop Connector"}));
}

TEST_F(SupervisionTick, TickInsideATicksMessageBox_CarriesOutAStop)
{
    startSoftphone();
    start();
    form().softphone().hashID = automation::Object(&map);
    touchIni();
    bool stopped = false;
    onBox = [&](const std::wstring& text) {
        if (text != L"Reload Ini data") return IDOK;
        stopped = true;
        form().StopConnector();
        tick();
        EXPECT_EQ(ended, 1);
        return IDOK;
    };
    tick();
    EXPECT_TRUE(stopped);
    EXPECT_EQ(ended, 1);
}

TEST_F(SupervisionTick, TickInsideAnotherProceduresBox_RunsInFull)
{
    startSoftphone();
    start();
    onBox = [&](const std::wstring& text) {
        if (text == L"a line") {
            touchIni();
            tick();
        }
        return IDOK;
    };
    form().WriteLog(L"a line");
    EXPECT_TRUE(wasShown(L"Reload Ini data"));
}

TEST_F(SupervisionTick, TickAfterATicksBoxWasClosed_RunsInFullAgain)
{
    startSoftphone();
    start();
    for (int time = 0; time < 2; ++time) {
        boxes.clear();
        touchIni();
        tick();
        EXPECT_TRUE(wasShown(L"Reload Ini data"));
    }
}

TEST_F(SupervisionTick, FailingTick_EndsQuietly_AndDoesNotHinderTheNext)
{
    startSoftphone();
    start();
    const std::string content = support::readFile(iniPath());
    DeleteFileW(iniPath().c_str());
    {
        const support::TrappedErrors errors;
        tick();
        EXPECT_EQ(errors.procedures, std::vector<std::wstring>{L"SupervisionPavex_Timer"});
    }
    writeIni(content);
    touchIni();
    tick();
    EXPECT_TRUE(wasShown(L"Reload Ini data"));
}

TEST_F(SupervisionTick, TickInsideAnOutgoingCall_IsLeftToTheNextTick)
{
    start();
    {
        const automation::OutgoingCall call;
        tick();
        EXPECT_TRUE(boxes.empty());
        EXPECT_FALSE(configuration().gStop);
    }
    tick();
    EXPECT_TRUE(configuration().gStop);
}

TEST_F(SupervisionTick, Timer_StartsWhenTheLinkIsMade)
{
    EXPECT_FALSE(KillTimer(form().window().handle(), FormWindow::supervisionTimer));
    start();
    EXPECT_TRUE(KillTimer(form().window().handle(), FormWindow::supervisionTimer));
}

// Between two timers of the test's own: however slow the machine, all keep their order.
TEST_F(SupervisionTick, BothTimers_TickAfterAboutFiveSeconds)
{
    const UINT_PTR early = SetTimer(nullptr, 0, 4'500, nullptr);
    startSoftphone();
    start(iniText());
    const UINT_PTR late = SetTimer(nullptr, 0, 6'500, nullptr);
    std::vector<UINT_PTR> order;
    MSG message;
    while ((order.empty() || order.back() != late) && GetMessageW(&message, nullptr, WM_TIMER, WM_TIMER) > 0)
        if (message.hwnd == form().window().handle() || !message.hwnd) order.push_back(message.wParam);
    KillTimer(nullptr, early);
    KillTimer(nullptr, late);
    EXPECT_EQ(order, (std::vector<UINT_PTR>{early, FormWindow::documentTimer, FormWindow::supervisionTimer, late}));
}

TEST_F(SupervisionTick, OtherTimers_AreNoTicks)
{
    start();
    SendMessageW(form().window().handle(), WM_TIMER, 99, 0);
    EXPECT_FALSE(configuration().gStop);
}

}

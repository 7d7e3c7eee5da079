// A user's wish to stop, let through in the middle of a long work.
#include "form_fixture.h"

#include "automation/outgoing_call.h"
#include "shell/file_time.h"

namespace hublink {

using shell_tests::iniText;
using shell_tests::question;

namespace {

class StopWish : public shell_tests::FormFixture {
protected:
    StopWish()
    {
        writeIni(iniText("trace=true\r\n"));
        load();
        boxes.clear();
    }

    void postPress() { PostMessageW(form().window().handle(), WM_MOUSEMOVE, 1, WM_RBUTTONDOWN); }

    void setIniTime(const FILETIME& time) const
    {
        const HANDLE file =
            CreateFileW(iniPath().c_str(), FILE_WRITE_ATTRIBUTES, 0, nullptr, OPEN_EXISTING, 0, nullptr);
        ASSERT_TRUE(SetFileTime(file, nullptr, nullptr, &time));
        CloseHandle(file);
    }
};

}

TEST_F(StopWish, PressThatWaits_IsAsked)
{
    onBox = [](const std::wstring& text) { return text == question ? IDYES : IDOK; };
    postPress();
    form().checkForStopRequest();
    EXPECT_TRUE(configuration().gStop);
    EXPECT_EQ(boxTexts(), (std::vector<std::wstring>{question, L"Stop Connector"}));
}

TEST_F(StopWish, CloseThatWaits_IsCarriedOut)
{
    PostMessageW(form().window().handle(), WM_CLOSE, 0, 0);
    form().checkForStopRequest();
    EXPECT_TRUE(configuration().gStop);
    EXPECT_EQ(boxTexts(), std::vector<std::wstring>{L"Stop Connector"});
}

TEST_F(StopWish, WhatWasHeldBackInsideACall_IsCarriedOut)
{
    onBox = [](const std::wstring& text) { return text == question ? IDNO : IDOK; };
    {
        const automation::OutgoingCall call;
        SendMessageW(form().window().handle(), WM_MOUSEMOVE, 1, WM_RBUTTONDOWN);
        SendMessageW(form().window().handle(), WM_CLOSE, 0, 0);
        EXPECT_TRUE(boxes.empty());
    }
    form().checkForStopRequest();
    EXPECT_EQ(boxTexts(), (std::vector<std::wstring>{question, L"Stop Connector"}));
}

TEST_F(StopWish, EventsAndTicks_StayQueued)
{
    std::string order;
    form().defer([&] { order += 'a'; });
    form().defer([&] { order += 'b'; });
    PostMessageW(form().window().handle(), WM_TIMER, FormWindow::supervisionTimer, 0);
    form().checkForStopRequest();
    EXPECT_EQ(order, "");
    EXPECT_TRUE(boxes.empty()) << "a tick would miss the softphone";
    pump();
    EXPECT_EQ(order, "ab");
    EXPECT_TRUE(configuration().gStop);
}

TEST_F(StopWish, MessagesOfOtherWindows_StayQueued)
{
    const HWND other = CreateWindowW(L"STATIC", L"", WS_POPUP, 0, 0, 1, 1, nullptr, nullptr, nullptr, nullptr);
    PostMessageW(other, WM_MOUSEMOVE, 0, 0);
    form().checkForStopRequest();
    MSG message;
    EXPECT_TRUE(PeekMessageW(&message, other, WM_MOUSEMOVE, WM_MOUSEMOVE, PM_REMOVE));
    DestroyWindow(other);
}

TEST_F(StopWish, EndOfTheMessageLoop_IsNotSwallowed)
{
    PostQuitMessage(7);
    form().checkForStopRequest();
    MSG message;
    ASSERT_TRUE(PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE));
    EXPECT_EQ(message.message, UINT{WM_QUIT});
    EXPECT_EQ(message.wParam, 7u);
}

TEST_F(StopWish, KillInTheIniFile_IsObeyed_AndSetBack)
{
    writeIni(iniText("trace=true\r\nkill=true\r\n"));
    touchIni();
    form().checkForStopRequest();
    EXPECT_TRUE(configuration().gStop);
    EXPECT_EQ(boxTexts(), std::vector<std::wstring>{L"Stop Connector"});
    EXPECT_EQ(iniValue("Application", "kill"), L"false");
}

TEST_F(StopWish, RestOfAChangedIniFile_WaitsForTheNextTick)
{
    const support::DummyProgram softphone(folder, L"Pavex.exe");
    writeIni(iniText("trace=true\r\ntempo=222\r\n"));
    touchIni();
    form().checkForStopRequest();
    EXPECT_NE(configuration().tempo, 222);
    EXPECT_TRUE(boxes.empty());
    tick();
    EXPECT_EQ(configuration().tempo, 222);
    EXPECT_TRUE(wasShown(L"Reload Ini data"));
}

TEST_F(StopWish, UnchangedIniFile_IsNotReadAgain)
{
    const auto time = modificationTime(iniPath());
    writeIni(iniText("trace=true\r\nkill=true\r\n"));
    setIniTime(*time);
    form().checkForStopRequest();
    EXPECT_FALSE(configuration().gStop);
    touchIni();
    form().checkForStopRequest();
    EXPECT_TRUE(configuration().gStop);
}

TEST_F(StopWish, MissingIniFile_AsksForNothing)
{
    DeleteFileW(iniPath().c_str());
    form().checkForStopRequest();
    EXPECT_FALSE(configuration().gStop);
    EXPECT_TRUE(boxes.empty());
}

TEST_F(StopWish, NothingWaiting_ChangesNothing)
{
    for (int records = 0; records < 100; ++records) form().checkForStopRequest();
    EXPECT_FALSE(configuration().gStop);
    EXPECT_TRUE(boxes.empty());
}

}

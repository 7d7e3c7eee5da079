// The question that a press on the icon opens.
#include "form_fixture.h"

#include "automation/outgoing_call.h"
#include "shell/screen_scale.h"
#include "support/gui_objects.h"
#include "support/process.h"

namespace hublink {

using shell_tests::iniText;
using shell_tests::question;

namespace {

class IconPress : public shell_tests::FormFixture {
protected:
    IconPress()
    {
        writeIni(iniText("trace=true\r\n"));
        load();
        boxes.clear();
    }

    // The icon's message, as the task bar sends it.
    void press(UINT code = WM_RBUTTONDOWN)
    {
        SendMessageW(form().window().handle(), WM_MOUSEMOVE, 1, static_cast<LPARAM>(code));
    }

    void answer(int button)
    {
        onBox = [button](const std::wstring& text) { return text == question ? button : IDOK; };
    }
};

}

TEST_F(IconPress, RightPress_AsksWhetherToStop)
{
    answer(IDNO);
    press();
    ASSERT_EQ(boxes.size(), 1u);
    EXPECT_EQ(boxes[0].text, question);
    EXPECT_EQ(boxes[0].flags, 4u + 32u + 256u);
}

TEST_F(IconPress, EveryOtherMessage_IsIgnored)
{
    for (UINT code = 0; code < 0x500; ++code)
        if (code != 0x204) press(code);
    EXPECT_TRUE(boxes.empty());
    for (const UINT code :
         std::initializer_list<UINT>{WM_LBUTTONDOWN, WM_LBUTTONDBLCLK, WM_RBUTTONUP, WM_RBUTTONDBLCLK, WM_MBUTTONDOWN})
        form().question().Form_MouseMove(0, 0, twipsFromPixels(static_cast<int>(code)), 0);
    EXPECT_TRUE(boxes.empty());
}

TEST_F(IconPress, CodeInTwips_WithAFractionOfAPixel_IsTheCode)
{
    answer(IDNO);
    form().question().Form_MouseMove(0, 0, twipsFromPixels(0x204) + 1, 0);
    EXPECT_EQ(boxes.size(), 1u);
    form().question().Form_MouseMove(0, 0, twipsFromPixels(0x204) - 1, 0);
    EXPECT_EQ(boxes.size(), 1u);
}

TEST_F(IconPress, OnlyX_IsLookedAt)
{
    answer(IDNO);
    form().question().Form_MouseMove(0, 0, 0, twipsFromPixels(0x204));
    EXPECT_TRUE(boxes.empty());
    form().question().Form_MouseMove(2, 3, twipsFromPixels(0x204), 12345);
    EXPECT_EQ(boxes.size(), 1u);
}

TEST_F(IconPress, AnswerNo_LeavesEverythingRunning)
{
    answer(IDNO);
    press();
    EXPECT_FALSE(configuration().gStop);
    EXPECT_EQ(boxes.size(), 1u);
}

TEST_F(IconPress, QuestionClosedWithoutAnAnswer_LeavesEverythingRunning)
{
    for (const int other : {0, IDOK, IDCANCEL, IDABORT, IDCLOSE}) {
        answer(other);
        press();
    }
    EXPECT_FALSE(configuration().gStop);
    EXPECT_EQ(boxes.size(), 5u);
}

TEST_F(IconPress, AnswerYes_StopsTheProgramAtTheNextTick)
{
    form().softphone().hashID = automation::Object(&map);
    answer(IDYES);
    press();
    EXPECT_TRUE(configuration().gStop);
    EXPECT_EQ(boxTexts(), (std::vector<std::wstring>{question, L"Stop Connector"}));
    EXPECT_EQ(ended, 0);
    tick();
    EXPECT_EQ(boxes.back().text, L"The End !!!");
    EXPECT_EQ(ended, 1);
}

TEST_F(IconPress, SecondPressWhileTheQuestionIsOpen_OpensNoSecondOne)
{
    onBox = [&](const std::wstring&) {
        if (boxes.size() > 3) return IDNO; // enough is shown
        press();
        press();
        return IDNO;
    };
    press();
    EXPECT_EQ(boxes.size(), 1u);
}

TEST_F(IconPress, PressAfterTheAnswer_AsksAgain)
{
    answer(IDNO);
    press();
    press();
    EXPECT_EQ(boxes.size(), 2u);
}

TEST_F(IconPress, FailingQuestion_EndsQuietly_AndTheNextPressAsksAgain)
{
    onBox = [](const std::wstring&) -> int { throw std::bad_alloc(); };
    press();
    answer(IDNO);
    press();
    EXPECT_EQ(boxes.size(), 2u);
    EXPECT_FALSE(configuration().gStop);
}

TEST_F(IconPress, TickWhileTheQuestionIsOpen_RunsInFull)
{
    onBox = [&](const std::wstring& text) {
        if (text == question) tick();
        return text == question ? IDNO : IDOK;
    };
    press();
    EXPECT_EQ(boxTexts(), (std::vector<std::wstring>{question, L"Stop Connector Pavex HS", L"Stop Connector"}));
    EXPECT_TRUE(configuration().gStop) << "there is no softphone, whatever the answer";
}

TEST_F(IconPress, ProgramThatStopsWhileTheQuestionIsOpen_Ends)
{
    form().softphone().hashID = automation::Object(&map);
    onBox = [&](const std::wstring& text) {
        if (text != question) return IDOK;
        tick();
        tick();
        EXPECT_EQ(ended, 1);
        return IDNO;
    };
    press();
    EXPECT_EQ(ended, 1);
}

TEST_F(IconPress, Question_ComesWithTheFormInTheForeground)
{
    onBox = [&](const std::wstring&) {
        EXPECT_EQ(GetForegroundWindow(), form().window().handle());
        return IDNO;
    };
    press();
    EXPECT_EQ(boxes.size(), 1u);
}

TEST_F(IconPress, ThousandsOfMessages_KeepNoGdiObjectAndNoWindow)
{
    answer(IDNO);
    press();
    const support::GuiMark before = support::guiMark();
    for (int message = 0; message < 5000; ++message) press(message % 10 ? WM_MOUSEMOVE : WM_RBUTTONDOWN);
    EXPECT_EQ(support::guiMark(), before);

    const HBRUSH kept = CreateSolidBrush(RGB(1, 2, 3));
    EXPECT_NE(support::guiMark().gdi, before.gdi) << "a kept object shows";
    DeleteObject(kept);
    const HWND window = CreateWindowW(L"STATIC", L"", WS_POPUP, 0, 0, 1, 1, nullptr, nullptr, nullptr, nullptr);
    EXPECT_NE(support::guiMark().windows, before.windows) << "a kept window shows";
    DestroyWindow(window);
}

TEST_F(IconPress, PressWhileTheStopIsBeingLogged_AsksAgain)
{
    int questions = 0;
    onBox = [&](const std::wstring& text) {
        if (text == question) return ++questions == 1 ? IDYES : IDNO;
        if (questions == 1) press(); // with the box of "Stop Connector" open
        return IDOK;
    };
    press();
    EXPECT_EQ(boxTexts(), (std::vector<std::wstring>{question, L"Stop Connector", question}));
}

TEST_F(IconPress, PressInsideAnOutgoingCall_IsAskedAfterIt)
{
    answer(IDNO);
    {
        const automation::OutgoingCall call;
        press();
        press();
        pump();
        EXPECT_TRUE(boxes.empty());
    }
    EXPECT_TRUE(support::eventually([&] { return !boxes.empty(); }));
    EXPECT_EQ(boxTexts(), std::vector<std::wstring>{question});
}

}

// The icon's record, its message and its question.
#include "form_fixture.h"

#include "automation/outgoing_call.h"
#include "shell/screen_scale.h"
#include "shell/tray_icon_data.h"
#include "support/gui_objects.h"

#include <cstddef>

namespace hublink {

using shell_tests::iniText;
using shell_tests::question;

namespace {

class Icon : public shell_tests::FormFixture {
protected:
    Icon()
    {
        writeIni(iniText("trace=true\r\n"));
        load();
        boxes.clear();
    }

    // The icon's message, as the task bar sends it.
    void press(UINT code = WM_RBUTTONDOWN) { SendMessageW(form().hWnd(), WM_MOUSEMOVE, 1, static_cast<LPARAM>(code)); }

    void answer(int button)
    {
        onBox = [button](const std::wstring& text) { return text == question ? button : IDOK; };
    }
};

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
    const HWND window = reinterpret_cast<HWND>(0x1234);
    const HICON icon = reinterpret_cast<HICON>(0x5678);
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

TEST(ScreenScale, CodeInTwips_ComesBackWholeAtEveryUsualScale)
{
    for (const int dotsPerInch : {72, 96, 107, 110, 120, 125, 144, 168, 192, 216, 240, 288, 384, 480}) {
        const double twipsPerPixel = 1440.0 / dotsPerInch;
        for (int code = 0; code <= 0x500; ++code)
            ASSERT_EQ(screenScale::pixelsFromTwips(code * twipsPerPixel, twipsPerPixel), code) << dotsPerInch;
    }
}

TEST(ScreenScale, FractionOfAPixel_IsCutOff)
{
    EXPECT_EQ(screenScale::pixelsFromTwips(516 * 15.0 + 14, 15.0), 516);
    EXPECT_EQ(screenScale::pixelsFromTwips(516 * 15.0 - 1, 15.0), 515);
    EXPECT_EQ(screenScale::pixelsFromTwips(-14, 15.0), 0);
    EXPECT_EQ(screenScale::pixelsFromTwips(-16, 15.0), -1);
}

TEST(ScreenScale, Screen_HasAnInchOf1440Twips)
{
    const HDC screen = GetDC(nullptr);
    const int dotsPerInch = GetDeviceCaps(screen, LOGPIXELSX);
    ReleaseDC(nullptr, screen);
    EXPECT_DOUBLE_EQ(screenScale::twipsPerPixelX() * dotsPerInch, 1440.0);
    EXPECT_DOUBLE_EQ(screenScale::twipsFromPixels(dotsPerInch), 1440.0);
    EXPECT_EQ(screenScale::pixelsFromTwips(1440.0), dotsPerInch);
}

TEST_F(Icon, IsShownFromTheStart)
{
    EXPECT_TRUE(iconIsShown());
}

TEST_F(Icon, Record_IsThatOfTheForm)
{
    const TrayIconData& record = form().trayIcon();
    const HICON formsIcon = reinterpret_cast<HICON>(GetClassLongPtrW(form().hWnd(), GCLP_HICON));
    ASSERT_TRUE(formsIcon);
    EXPECT_EQ(record.hIcon, formsIcon);
    EXPECT_EQ(record.hWnd, form().hWnd());
    EXPECT_EQ(record.uID, 1u);
    EXPECT_EQ(record.uFlags, 7u);
    EXPECT_EQ(record.uCallbackMessage, 0x200u);
    EXPECT_EQ(std::string(record.szTip, sizeof record.szTip),
              std::string("Orvel - Hublink\0", 16) + std::string(48, ' '));
}

TEST_F(Icon, RightPress_AsksWhetherToStop)
{
    answer(IDNO);
    press();
    ASSERT_EQ(boxes.size(), 1u);
    EXPECT_EQ(boxes[0].text, question);
    EXPECT_EQ(boxes[0].flags, 4u + 32u + 256u);
}

TEST_F(Icon, EveryOtherMessage_IsIgnored)
{
    for (UINT code = 0; code < 0x500; ++code)
        if (code != 0x204) press(code);
    EXPECT_TRUE(boxes.empty());
    for (const UINT code : {WM_LBUTTONDOWN, WM_LBUTTONDBLCLK, WM_RBUTTONUP, WM_RBUTTONDBLCLK, WM_MBUTTONDOWN})
        form().Form_MouseMove(0, 0, screenScale::twipsFromPixels(static_cast<int>(code)), 0);
    EXPECT_TRUE(boxes.empty());
}

TEST_F(Icon, CodeInTwips_WithAFractionOfAPixel_IsTheCode)
{
    answer(IDNO);
    form().Form_MouseMove(0, 0, screenScale::twipsFromPixels(0x204) + 1, 0);
    EXPECT_EQ(boxes.size(), 1u);
    form().Form_MouseMove(0, 0, screenScale::twipsFromPixels(0x204) - 1, 0);
    EXPECT_EQ(boxes.size(), 1u);
}

TEST_F(Icon, OnlyX_IsLookedAt)
{
    answer(IDNO);
    form().Form_MouseMove(0, 0, 0, screenScale::twipsFromPixels(0x204));
    EXPECT_TRUE(boxes.empty());
    form().Form_MouseMove(2, 3, screenScale::twipsFromPixels(0x204), 12345);
    EXPECT_EQ(boxes.size(), 1u);
}

TEST_F(Icon, AnswerNo_LeavesEverythingRunning)
{
    answer(IDNO);
    press();
    EXPECT_FALSE(configuration().gStop);
    EXPECT_EQ(boxes.size(), 1u);
}

TEST_F(Icon, QuestionClosedWithoutAnAnswer_LeavesEverythingRunning)
{
    for (const int other : {0, IDOK, IDCANCEL, IDABORT, IDCLOSE}) {
        answer(other);
        press();
    }
    EXPECT_FALSE(configuration().gStop);
    EXPECT_EQ(boxes.size(), 5u);
}

TEST_F(Icon, AnswerYes_StopsTheProgramAtTheNextTick)
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

TEST_F(Icon, SecondPressWhileTheQuestionIsOpen_OpensNoSecondOne)
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

TEST_F(Icon, PressAfterTheAnswer_AsksAgain)
{
    answer(IDNO);
    press();
    press();
    EXPECT_EQ(boxes.size(), 2u);
}

TEST_F(Icon, FailingQuestion_EndsQuietly_AndTheNextPressAsksAgain)
{
    onBox = [](const std::wstring&) -> int { throw std::bad_alloc(); };
    press();
    answer(IDNO);
    press();
    EXPECT_EQ(boxes.size(), 2u);
    EXPECT_FALSE(configuration().gStop);
}

TEST_F(Icon, TickWhileTheQuestionIsOpen_RunsInFull)
{
    onBox = [&](const std::wstring& text) {
        if (text == question) tick();
        return text == question ? IDNO : IDOK;
    };
    press();
    EXPECT_EQ(boxTexts(), (std::vector<std::wstring>{question, L"Stop Connector Pavex HS", L"Stop Connector"}));
    EXPECT_TRUE(configuration().gStop) << "there is no softphone, whatever the answer";
}

TEST_F(Icon, ProgramThatStopsWhileTheQuestionIsOpen_Ends)
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

TEST_F(Icon, Question_ComesWithTheFormInTheForeground)
{
    onBox = [&](const std::wstring&) {
        EXPECT_EQ(GetForegroundWindow(), form().hWnd());
        return IDNO;
    };
    press();
    EXPECT_EQ(boxes.size(), 1u);
}

TEST_F(Icon, ThousandsOfMessages_KeepNoGdiObjectAndNoWindow)
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

TEST_F(Icon, PressWhileTheStopIsBeingLogged_AsksAgain)
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

TEST_F(Icon, PressInsideAnOutgoingCall_IsAskedAfterIt)
{
    answer(IDNO);
    {
        const automation::OutgoingCall call;
        press();
        press();
        pump();
        EXPECT_TRUE(boxes.empty());
    }
    for (; boxes.empty(); Sleep(5)) pump();
    EXPECT_EQ(boxTexts(), std::vector<std::wstring>{question});
}

}

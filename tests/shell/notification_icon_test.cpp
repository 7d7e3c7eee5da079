// The icon: its record, and how it is offered to the shell.
#include "form_fixture.h"

#include <shellapi.h>

namespace hublink {

using shell_tests::iniText;

namespace {

class Icon : public shell_tests::FormFixture {
protected:
    Icon() { writeIni(iniText("trace=true\r\n")); }

    const support::DummyProgram softphone{folder, L"Pavex.exe"};
};

}

TEST_F(Icon, Icon_IsShownFromTheStart)
{
    load();
    EXPECT_TRUE(iconIsShown());
}

TEST_F(Icon, Record_IsThatOfTheForm)
{
    load();
    const TrayIconData& record = form().icon().record();
    const auto formsIcon = reinterpret_cast<HICON>(GetClassLongPtrW(form().window().handle(), GCLP_HICON));
    ASSERT_TRUE(formsIcon);
    EXPECT_EQ(record.hIcon, formsIcon);
    EXPECT_EQ(record.hWnd, form().window().handle());
    EXPECT_EQ(record.uID, 1u);
    EXPECT_EQ(record.uFlags, 7u);
    EXPECT_EQ(record.uCallbackMessage, 0x200u);
    EXPECT_EQ(std::string(record.szTip, sizeof record.szTip),
              std::string("Orvel - Hublink\0", 16) + std::string(48, ' '));
}

TEST_F(Icon, Image_IsTheOneDrawnForTheNotificationArea)
{
    load();
    ICONINFO parts{};
    ASSERT_TRUE(GetIconInfo(form().icon().record().hIcon, &parts));
    BITMAP image{};
    EXPECT_NE(GetObjectW(parts.hbmColor, sizeof image, &image), 0);
    DeleteObject(parts.hbmColor);
    DeleteObject(parts.hbmMask);
    EXPECT_EQ(image.bmWidth, GetSystemMetrics(SM_CXSMICON));
    EXPECT_EQ(image.bmHeight, GetSystemMetrics(SM_CYSMICON));
}

TEST_F(Icon, RefusedAtTheStart_IsOfferedAgainAtTheTicks_UntilItStands)
{
    int offers = 0;
    onIcon = [&](DWORD message) { return message != NIM_ADD || ++offers == 4; };
    load();
    EXPECT_EQ(offers, 1);
    for (int time = 0; time < 20; ++time) tick();
    EXPECT_EQ(offers, 4) << "never again once it stands";
}

TEST_F(Icon, RefusedForAMinute_IsOfferedNoMore)
{
    int offers = 0;
    onIcon = [&](DWORD message) {
        if (message == NIM_ADD) ++offers;
        return message != NIM_ADD;
    };
    load();
    for (int time = 0; time < 30; ++time) tick();
    EXPECT_EQ(offers, 1 + 12);
}

TEST_F(Icon, ThatStands_IsNotOfferedAgain_AlsoWhenTheTaskBarHasLostIt)
{
    load();
    TrayIconData icon = FillTrayIconData(form().window().handle(), 1, 0, 0, nullptr, "");
    ASSERT_TRUE(notifyShell(NIM_DELETE, icon));
    for (int time = 0; time < 3; ++time) tick();
    EXPECT_FALSE(iconIsShown());
}

TEST_F(Icon, StillRefused_IsNotOfferedOnceAStopIsAskedFor)
{
    int offers = 0;
    onIcon = [&](DWORD message) {
        if (message == NIM_ADD) ++offers;
        return message != NIM_ADD;
    };
    load();
    form().StopConnector();
    tick();
    EXPECT_EQ(offers, 1);
}

}

#include "desk_fixture.h"

namespace {

class SupervisionAtTheDesk : public DeskFixture {};

constexpr std::string_view marc = "[contact]\nFirstName=Marc\nLastName=Durand\nBusinessTelephoneNumber=0123\n";

}

TEST_F(SupervisionAtTheDesk, SoftphoneKilled_IsLoggedAtTheNextTick_AndTheProcessEndsAtTheFollowingOne)
{
    start();
    desk.softphone(L"die"); // withdrawn first: a killed class stays dead for a while under some systems
    tick();
    EXPECT_TRUE(logGets(L"Stop Connector Pavex HS"));
    EXPECT_TRUE(logGets(L"Abort Connector Initialization"))
        << "Outlook still runs, so that tick opens its session once more";
    EXPECT_TRUE(desk.hublinkProcess().running());
    desk.tick();
    EXPECT_TRUE(ends());
    EXPECT_EQ(desk.hublinkProcess().exitCode(), 0u);
    EXPECT_TRUE(desk.outlookProcess().running());
}

TEST_F(SupervisionAtTheDesk, SoftphoneQuits_TheProcessEndsAtTheNextTick_AndOutlookStays)
{
    start();
    desk.softphone(L"quit");
    EXPECT_TRUE(desk.softphoneProcess().ended(eventTimeout));
    desk::player::waitFor(200);
    desk.tick();
    EXPECT_TRUE(ends());
    EXPECT_EQ(desk.logBody().find(L"Stop Connector"), std::wstring::npos)
        << "the session is let go before the line is written";
    EXPECT_TRUE(desk.outlookProcess().running()) << "\"quitoutlook\" is off";
}

TEST_F(SupervisionAtTheDesk, QuitOutlookOn_OutlookIsClosedWithTheProgram)
{
    start();
    desk.setIni("outlook", "quitoutlook", "true");
    tick();
    EXPECT_TRUE(logGets(L"Reload Ini data"));
    settle();
    EXPECT_TRUE(desk.stopHublink());
    EXPECT_TRUE(desk.outlookProcess().ended(eventTimeout));
}

TEST_F(SupervisionAtTheDesk, OutlookClosedAndOpenedAgain_TheSessionIsOpenedAgain_AndACallIsServed)
{
    start(marc);
    desk.closeOutlook();
    tick();
    settle();
    desk.startOutlook();
    tick();
    EXPECT_TRUE(outlookIsAskedFor(L"NameSpace.GetDefaultFolder"));
    desk.softphone(L"call Number=0123 Incoming=true");
    EXPECT_TRUE(desk.outlookShows(L"Marc Durand - Contact"));
    EXPECT_EQ(desk.logBody().find(L'\n', desk.logBody().rfind(L"Connector Initialization  Ok")), std::wstring::npos)
        << "the log item belonged to the Outlook that went: no line follows";
}

TEST_F(SupervisionAtTheDesk, IniFileTouchedWithoutAChange_IsReloaded_AndTheSessionOpenedAgain)
{
    start();
    const std::string text = desk::player::readFile(desk.iniFile());
    desk.outlook(L"clear");
    desk::player::writeFile(desk.iniFile(), text);
    tick();
    EXPECT_TRUE(logGets(L"Reload Ini data"));
    EXPECT_TRUE(outlookIsAskedFor(L"NameSpace.GetDefaultFolder"));
    settle();
    desk.outlook(L"clear");
    tick();
    settle();
    EXPECT_EQ(desk.outlook(L"calls"), L"") << "once";
}

TEST_F(SupervisionAtTheDesk, KillInTheIniFile_EndsTheProgram_AndIsSetBack)
{
    start();
    desk.setIni("Application", "kill", "true");
    desk.tick();
    EXPECT_TRUE(desk::player::waitUntil(
        [&] { return desk::player::readFile(desk.iniFile()).find("kill=false") != std::string::npos; }, eventTimeout));
    desk.tick();
    EXPECT_TRUE(ends());
}

TEST_F(SupervisionAtTheDesk, IniFileRemoved_NothingIsReloadedUntilItIsBack_AndTheOtherStepsGoOn)
{
    start();
    const std::string text = desk::player::readFile(desk.iniFile());
    desk::player::removeFile(desk.iniFile());
    for (int n = 0; n < 2; ++n) {
        tick();
        settle();
    }
    EXPECT_FALSE(desk.logHolds(L"Reload Ini data"));
    desk::player::writeFile(desk.iniFile(), text);
    tick();
    EXPECT_TRUE(logGets(L"Reload Ini data"));
    settle();
    desk::player::removeFile(desk.iniFile());
    desk.closeOutlook();
    tick();
    settle();
    desk.startOutlook();
    tick();
    EXPECT_TRUE(outlookIsAskedFor(L"NameSpace.GetDefaultFolder"));
}

TEST_F(SupervisionAtTheDesk, FileThatNamesNoGroupware_StopsTheProgramAtItsFirstTick)
{
    desk.startSoftphone();
    desk.startOutlook();
    desk::player::writeFile(desk.iniFile(), "[Application]\r\ntype=outlook\r\n");
    desk.startHublink();
    EXPECT_TRUE(ends());
    EXPECT_EQ(desk.hublinkProcess().exitCode(), 0u);
    EXPECT_EQ(desk.outlook(L"calls"), L"");
}

TEST_F(SupervisionAtTheDesk, IniFileCannotBeInstalled_StopsTheProgramAtItsFirstTick)
{
    desk.startSoftphone();
    desk::player::setRegistryText(HKEY_LOCAL_MACHINE,
                                  L"SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\App Paths\\Pavex.exe", L"Path",
                                  L"C:\\No such folder");
    desk.startHublink();
    EXPECT_TRUE(ends());
    EXPECT_EQ(desk.hublinkProcess().exitCode(), 0u);
}

TEST_F(SupervisionAtTheDesk, DirectoryInTheIniFilesPlace_StopsTheProgramAtItsFirstTick)
{
    desk.startSoftphone();
    desk::player::makeFolder(desk.iniFile());
    desk.startHublink();
    EXPECT_TRUE(ends());
    RemoveDirectoryW(desk.iniFile().c_str());
}

TEST_F(SupervisionAtTheDesk, BinaryJunkInTheIniFile_NamesNoGroupware_AndStopsTheProgram)
{
    start();
    std::string junk(100'000, '\0');
    for (std::size_t index = 0; index < junk.size(); ++index) junk[index] = static_cast<char>(index * 31 % 251);
    desk::player::writeFile(desk.iniFile(), junk);
    tick();
    settle();
    desk.tick();
    EXPECT_TRUE(ends());
    EXPECT_EQ(desk.hublinkProcess().exitCode(), 0u);
}

TEST_F(SupervisionAtTheDesk, ValuesOfSeveralThousandCharacters_AreCut_AndTheProgramGoesOn)
{
    const std::string longText(5000, 'x');
    desk.startSoftphone();
    desk.startOutlook(marc);
    desk::player::writeFile(desk.iniFile(), "[Application]\r\ntype=OUTLOOK," + longText + "\r\ntrace=" + longText +
                                                "\r\n[AllApplication]\r\nPopUp=true\r\nHisto=" + longText +
                                                "\r\n[outlook]\r\nCallBackMailSyntaxe=" + longText + "\r\n");
    desk.startHublink();
    ASSERT_TRUE(logGets(L"Connector Initialization  Ok"));
    desk.softphone(L"call Number=0123 Incoming=true");
    EXPECT_TRUE(desk.outlookShows(L"Marc Durand - Contact"));
}

TEST_F(SupervisionAtTheDesk, StaleStopRequest_DoesNotStopANewRun)
{
    desk.startSoftphone();
    desk.startOutlook();
    desk::player::writeFile(desk.iniFile(), "[Application]\r\nkill=true\r\ntype=OUTLOOK\r\n");
    desk.startHublink();
    EXPECT_TRUE(logGets(L"Connector Initialization  Ok"));
    EXPECT_FALSE(ends(6000));
}

TEST_F(SupervisionAtTheDesk, SecondStart_EndsWithZero_AndTouchesNothing)
{
    start();
    desk.outlook(L"clear");
    desk.softphone(L"clear");
    desk.setIni("Application", "kill", "unchanged");
    const desk::player::Process second(std::wstring(desk::player::Desk::programFolder) + L"\\hublink.exe", L"");
    EXPECT_TRUE(second.ended(eventTimeout));
    EXPECT_EQ(second.exitCode(), 0u);
    EXPECT_NE(desk::player::readFile(desk.iniFile()).find("kill=unchanged"), std::string::npos);
    EXPECT_EQ(desk.softphone(L"calls"), L"");
    EXPECT_TRUE(desk.hublinkProcess().running());
}

TEST_F(SupervisionAtTheDesk, FormClosed_AsksForAStop)
{
    start();
    PostMessageW(FindWindowW(L"Hublink", nullptr), WM_CLOSE, 0, 0);
    desk.tick();
    EXPECT_TRUE(ends());
}

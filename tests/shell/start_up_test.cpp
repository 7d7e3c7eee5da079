// The start-up sequence, from the registry to the link.
#include "form_fixture.h"

#include "automation/conversion.h"
#include "automation/text.h"
#include "common/files.h"

namespace hublink {

using shell_tests::iniText;

namespace {

using StartUp = shell_tests::FormFixture;

// Today in the user's short date format.
std::wstring today()
{
    wchar_t text[64];
    GetDateFormatW(LOCALE_USER_DEFAULT, DATE_SHORTDATE, nullptr, nullptr, text, 64);
    return text;
}

}

TEST_F(StartUp, Settings_ComeFromTheRegistry)
{
    writeIni(iniText());
    load();
    EXPECT_EQ(configuration().szPathPavex, folder.file(L"pavex"));
    EXPECT_EQ(configuration().szServer, L"zrb.example");
    EXPECT_EQ(configuration().szUserName, L"john");
    EXPECT_EQ(configuration().szFileConnectorIni, iniPath());
}

TEST_F(StartUp, MissingServerAndUser_LeaveTheMissingValuesText)
{
    writeIni(iniText());
    server.removeValue();
    load();
    EXPECT_EQ(configuration().szServer, L"--Not String--");
    EXPECT_EQ(configuration().szUserName, L"john");
    EXPECT_FALSE(configuration().gStop);
}

TEST_F(StartUp, MissingUserKey_LeavesEmptyTexts)
{
    writeIni(iniText());
    server.removeValue();
    user.removeValue();
    user.removeKey();
    load();
    EXPECT_EQ(configuration().szServer, L"");
    EXPECT_EQ(configuration().szUserName, L"");
}

TEST_F(StartUp, ServerOfAnotherType_LeavesAnEmptyText)
{
    writeIni(iniText());
    server.setNumber(7);
    user.setText(std::wstring(300, L'a'));
    load();
    EXPECT_EQ(configuration().szServer, L"");
    EXPECT_EQ(configuration().szUserName, L"--Not String--");
}

TEST_F(StartUp, NoSoftphoneInstalled_LooksOnTheCurrentDrive_AndStops)
{
    pavexPath.removeValue();
    pavexPath.removeKey();
    load();
    EXPECT_EQ(configuration().szPathPavex, L"");
    EXPECT_EQ(configuration().szFileConnectorIni, L"\\Connector\\pavexconnector.ini");
    EXPECT_EQ(configuration().szPathLogFile, L"");
    EXPECT_TRUE(configuration().gStop);
}

TEST_F(StartUp, NoSoftphoneInstalled_AnIniFileOnTheCurrentDriveIsRead)
{
    pavexPath.removeValue();
    pavexPath.removeKey();
    ASSERT_TRUE(CreateDirectoryW(L"C:\\Connector", nullptr));
    support::writeFile(L"C:\\Connector\\pavexconnector.ini", iniText("tempo=123\r\n"));
    load();
    DeleteFileW(L"C:\\Connector\\pavexconnector.ini");
    RemoveDirectoryW(L"C:\\Connector");
    EXPECT_EQ(configuration().tempo, 123);
    EXPECT_FALSE(configuration().gStop);
}

TEST_F(StartUp, SoftphoneKeyWithoutPath_IsTakenAsItStands)
{
    pavexPath.setText(L"x");
    pavexPath.removeValue();
    load();
    EXPECT_EQ(configuration().szPathPavex, L"--Not String--");
    EXPECT_EQ(configuration().szFileConnectorIni, L"--Not String--\\Connector\\pavexconnector.ini");
    EXPECT_TRUE(configuration().gStop);
}

TEST_F(StartUp, PathOfAnotherType_IsNoPath)
{
    pavexPath.setNumber(1);
    load();
    EXPECT_EQ(configuration().szPathPavex, L"");
    EXPECT_EQ(configuration().szFileConnectorIni, L"\\Connector\\pavexconnector.ini");
    EXPECT_TRUE(configuration().gStop);
}

TEST_F(StartUp, LogFileName_CarriesTheDateInTheUsersFormat)
{
    writeIni(iniText());
    const std::wstring before = today();
    load();
    const std::wstring name = folder.file(L"pavex") + L"\\ConnectorId\\log\\log";
    const std::wstring& found = configuration().szPathLogFile;
    EXPECT_TRUE(found == name + before + L".log" || found == name + today() + L".log");
    EXPECT_FALSE(FileExist(folder.file(L"pavex\\ConnectorId"))) << "nothing is written there";
}

TEST_F(StartUp, LogFileName_FollowsAnotherFormatOfTheUser)
{
    wchar_t usual[80];
    ASSERT_TRUE(GetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_SSHORTDATE, usual, 80));
    ASSERT_TRUE(SetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_SSHORTDATE, L"yyyy.MM.dd"));
    SYSTEMTIME before, after;
    GetLocalTime(&before);
    load();
    GetLocalTime(&after);
    SetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_SSHORTDATE, usual);
    const auto name = [this](const SYSTEMTIME& day) {
        wchar_t date[16];
        swprintf(date, 16, L"%04d.%02d.%02d", day.wYear, day.wMonth, day.wDay);
        return folder.file(L"pavex") + L"\\ConnectorId\\log\\log" + date + L".log";
    };
    EXPECT_TRUE(configuration().szPathLogFile == name(before) || configuration().szPathLogFile == name(after))
        << automation::toAnsi(configuration().szPathLogFile);
}

TEST_F(StartUp, MissingIniFile_IsInstalledFromTheProgramsFolder_Writable)
{
    folder.write(L"program\\pavexconnector.ini", iniText("kill=false\r\ntempo=321\r\n"));
    SetFileAttributesW((programFolder + L"\\pavexconnector.ini").c_str(), FILE_ATTRIBUTE_READONLY);
    load();
    EXPECT_EQ(support::readFile(iniPath()), iniText("kill=false\r\ntempo=321\r\n"));
    EXPECT_EQ(GetFileAttributesW(iniPath().c_str()) & FILE_ATTRIBUTE_READONLY, 0u);
    EXPECT_EQ(configuration().tempo, 321);
    EXPECT_FALSE(configuration().gStop);
}

TEST_F(StartUp, ExistingIniFile_IsNotReplaced)
{
    folder.write(L"program\\pavexconnector.ini", iniText("tempo=321\r\n"));
    writeIni(iniText("tempo=123\r\n"));
    load();
    EXPECT_EQ(configuration().tempo, 123);
}

TEST_F(StartUp, StopRequestOfAnEarlierRun_IsResetBeforeItIsRead)
{
    writeIni(iniText("kill=true\r\ntempo=123\r\n"));
    load();
    EXPECT_FALSE(configuration().gStop);
    EXPECT_EQ(iniValue("Application", "kill"), L"false");
    EXPECT_EQ(configuration().tempo, 123);
}

TEST_F(StartUp, IniFileMissingEverywhere_StopsTheProgram_ButTheLoadGoesOn)
{
    pavexPath.setText(folder.file(L"nowhere"));
    load();
    EXPECT_TRUE(configuration().gStop);
    EXPECT_TRUE(KillTimer(form().window().handle(), FormWindow::supervisionTimer))
        << "the tick that ends the program must come";
    EXPECT_TRUE(iconIsShown());
}

TEST_F(StartUp, IniFileThatNamesNoGroupware_StopsTheProgramAtTheNextTicks)
{
    writeIni("[Application]\r\ntype=\r\n");
    load();
    EXPECT_TRUE(configuration().gStop);
    EXPECT_EQ(ended, 0);
    tick(); // tells the map server, which is not there
    tick();
    EXPECT_EQ(ended, 1);
}

TEST_F(StartUp, FolderInPlaceOfTheIniFile_StopsTheProgram)
{
    CreateDirectoryW(iniPath().c_str(), nullptr);
    load();
    EXPECT_TRUE(configuration().gStop);
}

TEST_F(StartUp, JunkInPlaceOfTheIniFile_StopsTheProgram)
{
    std::string junk;
    for (int index = 0; index < 5000; ++index) junk += static_cast<char>(index * 13 + index / 256);
    writeIni(junk);
    load();
    EXPECT_TRUE(configuration().gStop);
}

TEST_F(StartUp, EveryValueOverlong_IsReadAndDoesNoHarm)
{
    const std::string overlong(3000, 'x');
    std::string features;
    for (const char* key : {"PopUp", "NewContact", "Histo", "Repertory", "CallBackMail"})
        features += std::string(key) + "=" + overlong + "\r\n";
    std::string application;
    for (const char* key : {"kill", "trace", "tempo", "tempo1", "TryCnxNumber"})
        application += std::string(key) + "=" + overlong + "\r\n";
    writeIni(iniText(application, features, "type=OUTLOOK," + overlong + "\r\n"));
    load();
    EXPECT_TRUE(configuration().bgWithOutlook);
    EXPECT_FALSE(configuration().bgWithPopUp);
    EXPECT_FALSE(configuration().gStop);
}

TEST_F(StartUp, Utf16IniFile_IsRead)
{
    writeIni(support::utf16File(L"[Application]\r\ntype=OUTLOOK\r\ntempo=123\r\n"));
    load();
    EXPECT_EQ(configuration().tempo, 123);
    EXPECT_FALSE(configuration().gStop);
}

TEST_F(StartUp, Order_EverythingIsReadyWhenTheLinkIsMade)
{
    writeIni(iniText("trace=true\r\nkill=true\r\ntempo=123\r\n", "PopUp=true\r\n"));
    bool looked = false;
    onBox = [&](const std::wstring& text) {
        if (text != L"Start Connector Initialization") return IDOK;
        looked = true;
        EXPECT_EQ(configuration().szUserName, L"john");
        EXPECT_EQ(configuration().szFileConnectorIni, iniPath());
        EXPECT_TRUE(iconIsShown());
        EXPECT_EQ(iniValue("Application", "kill"), L"false");
        EXPECT_EQ(configuration().tempo, 123);
        EXPECT_TRUE(configuration().bgWithPopUp);
        EXPECT_FALSE(KillTimer(form().window().handle(), FormWindow::supervisionTimer))
            << "supervision starts afterwards";
        return IDOK;
    };
    load();
    EXPECT_TRUE(looked);
    EXPECT_TRUE(KillTimer(form().window().handle(), FormWindow::supervisionTimer));
}

TEST_F(StartUp, NothingInReach_GoesOnQuietly)
{
    writeIni(iniText());
    load();
    EXPECT_TRUE(boxes.empty());
    EXPECT_FALSE(configuration().gStop);
    EXPECT_FALSE(form().outlook().bOutlookInit);
    EXPECT_FALSE(form().softphone().hashID);
    EXPECT_FALSE(form().softphone().PavexObj);
}

TEST_F(StartUp, Form_IsAHiddenTopLevelWindow)
{
    writeIni(iniText());
    load();
    EXPECT_FALSE(IsWindowVisible(form().window().handle()));
    EXPECT_EQ(GetAncestor(form().window().handle(), GA_PARENT), GetDesktopWindow());
    EXPECT_EQ(FindWindowW(L"Hublink", L"Hublink"), form().window().handle());
}

TEST_F(StartUp, FailuresCountedBefore_AreForgotten)
{
    writeIni(iniText("", "", "type=LOTUS\r\n"));
    form().outlook().groupware.nbInitFailure = 7;
    onBox = nullptr;
    load();
    const int ofThisStart = form().outlook().groupware.nbInitFailure;
    EXPECT_LT(ofThisStart, 7);
}

}

// Settings that are given when the program is rolled out.
#include "automation/text.h"
#include "installer_test.h"

namespace {

using namespace installer;

using RollOut = InstallerTest;

}

TEST_F(RollOut, SettingsGiven_StandInTheSoftphonesIniFile_AllOthersAreTheDefault)
{
    installSoftphone();
    ASSERT_EQ(install(thisPackage(),
                      L"TYPE=OUTLOOK,LOTUS POPUP=false LANGUAGE=1036 TEMPO=0 SHOWGRPWAGENDA=true "
                      L"CALLBACKMAILSYNTAXE=\"Rappelez <FirstName> au <PhoneNumber> d\u00E8s que possible\""),
              succeeded)
        << log();
    EXPECT_EQ(ini("Application", "type"), "OUTLOOK,LOTUS");
    EXPECT_EQ(ini("AllApplication", "PopUp"), "false");
    EXPECT_EQ(ini("outlook", "language"), "1036");
    EXPECT_EQ(ini("Application", "tempo"), "0");
    EXPECT_EQ(ini("lotus", "ShowGrpwAgenda"), "true");
    EXPECT_EQ(ini("outlook", "CallBackMailSyntaxe"), "Rappelez <FirstName> au <PhoneNumber> d\xE8s que possible");
    EXPECT_EQ(ini("Application", "tempo1"), "20");
    EXPECT_EQ(ini("AllApplication", "Histo"), "true");
}

TEST_F(RollOut, ValueThatTheProgramWouldNotUnderstand_InstallsNothing)
{
    installSoftphone();
    for (const wchar_t* wrong : {L"TYPE=outlook", L"TYPE1=NOTES", L"POPUP=yes", L"TEMPO=fast", L"TEMPO=-1",
                                 L"LANGUAGE=French", L"ALWAYSVERIFYPHONENUMBER=1"})
        EXPECT_EQ(install(thisPackage(), wrong), refused) << automation::toAnsi(wrong);
    EXPECT_FALSE(exists(folder));
    EXPECT_FALSE(exists(iniFile()));
    EXPECT_EQ(installedVersions().size(), 0u);
}

TEST_F(RollOut, WithoutASoftphone_TheSettingsWaitInTheDefaultFile_AlsoThroughAnUpgrade)
{
    ASSERT_EQ(install(thisPackage(), L"TYPE=LOTUS"), succeeded) << log();
    const std::wstring defaults = std::wstring(folder) + L"\\pavexconnector.ini";
    EXPECT_EQ(setting(defaults, "Application", "type"), "LOTUS");
    EXPECT_FALSE(exists(L"C:\\Pavex"));
    ASSERT_EQ(install(nextPackage()), succeeded) << log();
    EXPECT_EQ(setting(defaults, "Application", "type"), "LOTUS");
    EXPECT_NE(support::readFile(defaults).find("of the later version"), std::string::npos);
    installSoftphone();
    ASSERT_EQ(repair(nextPackage()), succeeded) << log();
    EXPECT_EQ(ini("Application", "type"), "LOTUS") << "a repair brings the file to a softphone that came later";
}

TEST_F(RollOut, SoftphonesKeyThatNamesNoFolder_CountsAsNone)
{
    setRegistryText(HKEY_LOCAL_MACHINE, softphoneKey, L"Path", L"C:\\Gone");
    ASSERT_EQ(install(thisPackage()), succeeded) << log();
    EXPECT_FALSE(exists(L"C:\\Gone"));
}

TEST_F(RollOut, SettingsGivenToAnInstallationThatIsThere_ChangeThemAlone)
{
    installSoftphone();
    ASSERT_EQ(install(thisPackage()), succeeded) << log();
    edit(iniFile(), "AllApplication", "Histo", "false");
    ASSERT_EQ(install(thisPackage(), L"TYPE=LOTUS"), succeeded) << log();
    EXPECT_EQ(ini("Application", "type"), "LOTUS");
    EXPECT_EQ(ini("AllApplication", "Histo"), "false");
    EXPECT_EQ(ini("AllApplication", "PopUp"), "true");
}

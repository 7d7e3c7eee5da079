// From one version to the next, and not back.
#include "automation/text.h"
#include "installer_test.h"
#include "programs/executable.h"

namespace {

using namespace installer;

using Upgrade = InstallerTest;

std::wstring installedVersion()
{
    return programs::versionOf(L"C:\\Program Files\\Hublink\\hublink.exe").file;
}

const std::wstring thisVersion = automation::toWide(PROJECT_VERSION);
const std::wstring nextVersion = automation::toWide(NEXT_VERSION);

}

TEST_F(Upgrade, EditedIniFile_Stays_ProgramsAndDefaultsAreTheNewOnes)
{
    installSoftphone();
    ASSERT_EQ(install(thisPackage()), succeeded) << log();
    edit(iniFile(), "AllApplication", "PopUp", "false");
    const std::string edited = support::readFile(iniFile());
    ASSERT_EQ(install(nextPackage()), succeeded) << log();
    EXPECT_EQ(installedVersion(), nextVersion);
    EXPECT_EQ(installedVersions(), std::multiset<std::wstring>{nextVersion});
    EXPECT_EQ(support::readFile(iniFile()), edited);
    EXPECT_NE(support::readFile(std::wstring(folder) + L"\\pavexconnector.ini").find("of the later version"),
              std::string::npos);
    EXPECT_EQ(registryText(HKEY_LOCAL_MACHINE, runKey, L"Hublink"), L"\"C:\\Program Files\\Hublink\\hublink.exe\"");
    EXPECT_EQ(registryText(HKEY_LOCAL_MACHINE, mapClassKey, L""), L"{6FC819A5-645C-4241-8809-6BBBE1AF913F}");
    EXPECT_TRUE(isInStartMenu(L"Hublink"));
    EXPECT_TRUE(isInStartMenu(L"Hublink Check"));
    EXPECT_EQ(filesBelow(folder), shippedFiles());
}

TEST_F(Upgrade, UneditedIniFile_BecomesTheNewDefault_WithTheSettingsOfTheRollOut)
{
    installSoftphone();
    ASSERT_EQ(install(thisPackage(), L"TYPE=LOTUS TEMPO=150"), succeeded) << log();
    ASSERT_EQ(install(nextPackage(), L"TEMPO=90"), succeeded) << log();
    const std::string settings = support::readFile(iniFile());
    EXPECT_NE(settings.find("of the later version"), std::string::npos);
    EXPECT_EQ(ini("Application", "type"), "LOTUS");
    EXPECT_EQ(ini("Application", "tempo"), "90");
    ASSERT_EQ(remove(nextPackage()), succeeded) << log();
    EXPECT_FALSE(exists(softphone + L"\\Connector")) << "nobody has edited it";
}

TEST_F(Upgrade, ToAnEarlierVersion_IsRefused_AndChangesNothing)
{
    installSoftphone();
    ASSERT_EQ(install(nextPackage()), succeeded) << log();
    EXPECT_EQ(install(thisPackage()), refused);
    EXPECT_EQ(installedVersion(), nextVersion);
    EXPECT_EQ(installedVersions(), std::multiset<std::wstring>{nextVersion});
}

// Installed, installed twice, repaired, removed.
#include "automation/text.h"
#include "installer_test.h"
#include "programs/executable.h"

namespace {

using namespace installer;

// What the map server registers when it is asked to, and the installer by itself.
std::map<std::wstring, std::optional<std::wstring>> mapServerRegistration()
{
    const std::wstring classes = L"SOFTWARE\\Classes\\";
    const std::wstring id = L"CLSID\\{6FC819A5-645C-4241-8809-6BBBE1AF913F}";
    std::map<std::wstring, std::optional<std::wstring>> found;
    for (const std::wstring& key :
         {std::wstring(L"PavexConvId.OrvelConvertId"), std::wstring(L"PavexConvId.OrvelConvertId\\CLSID"), id,
          id + L"\\ProgID", id + L"\\LocalServer32"})
        found[key] = registryText(HKEY_LOCAL_MACHINE, classes + key, L"");
    return found;
}

using Installation = InstallerTest;
using Repair = InstallerTest;
using Removal = InstallerTest;

}

TEST_F(Installation, Silent_PutsEveryFileInPlace_AndTellsItsVersion)
{
    ASSERT_EQ(install(thisPackage()), succeeded) << log();
    EXPECT_EQ(filesBelow(folder), shippedFiles());
    EXPECT_TRUE(shippedFiles().contains(L"dictionary\\1036.ini"));
    EXPECT_EQ(programs::versionOf(std::wstring(folder) + L"\\hublink.exe").file, automation::toWide(PROJECT_VERSION));
    EXPECT_EQ(installedVersions(), std::multiset<std::wstring>{automation::toWide(PROJECT_VERSION)});
}

TEST_F(Installation, Silent_StartsWithWindows_AndStandsInTheStartMenu)
{
    ASSERT_EQ(install(thisPackage()), succeeded) << log();
    EXPECT_EQ(registryText(HKEY_LOCAL_MACHINE, runKey, L"Hublink"), L"\"C:\\Program Files\\Hublink\\hublink.exe\"");
    EXPECT_TRUE(isInStartMenu(L"Hublink"));
    EXPECT_TRUE(isInStartMenu(L"Hublink Check"));
}

TEST_F(Installation, MapServer_IsRegisteredAsItRegistersItself)
{
    ASSERT_EQ(install(thisPackage()), succeeded) << log();
    const auto byInstaller = mapServerRegistration();
    const desk::player::Process server(std::wstring(folder) + L"\\PavexConvId.exe", L"/RegServer");
    ASSERT_TRUE(server.ended(20'000));
    EXPECT_EQ(byInstaller, mapServerRegistration());
    EXPECT_EQ(byInstaller.at(L"PavexConvId.OrvelConvertId\\CLSID"), L"{6FC819A5-645C-4241-8809-6BBBE1AF913F}");
}

TEST_F(Installation, AnotherMapServerIsRegistered_IsLeftAlone_AlsoByTheRemoval)
{
    const std::wstring other = L"{00000000-1111-2222-3333-444444444444}";
    setRegistryText(HKEY_LOCAL_MACHINE, mapClassKey, L"", other);
    ASSERT_EQ(install(thisPackage()), succeeded) << log();
    EXPECT_EQ(registryText(HKEY_LOCAL_MACHINE, mapClassKey, L""), other);
    EXPECT_EQ(registryText(HKEY_LOCAL_MACHINE, mapServerKey, L""), std::nullopt);
    ASSERT_EQ(remove(thisPackage()), succeeded) << log();
    EXPECT_EQ(registryText(HKEY_LOCAL_MACHINE, mapClassKey, L""), other);
}

TEST_F(Installation, SoftphonesFolder_GetsTheDefaultIniFile_AndTheFolderForIt)
{
    installSoftphone();
    ASSERT_EQ(install(thisPackage()), succeeded) << log();
    const std::string defaults = support::readFile(std::wstring(folder) + L"\\pavexconnector.ini");
    EXPECT_NE(defaults.find("[Application]"), std::string::npos);
    EXPECT_EQ(support::readFile(iniFile()), defaults);
}

TEST_F(Installation, Twice_IsTheSameAsOnce)
{
    installSoftphone();
    ASSERT_EQ(install(thisPackage()), succeeded) << log();
    edit(iniFile(), "AllApplication", "PopUp", "false");
    ASSERT_EQ(install(thisPackage()), succeeded) << log();
    EXPECT_EQ(installedVersions().size(), 1u);
    EXPECT_EQ(filesBelow(folder), shippedFiles());
    EXPECT_EQ(ini("AllApplication", "PopUp"), "false");
}

TEST_F(Installation, FoldersWithBlanksAndAccents_AreTakenAsTheyAre)
{
    const std::wstring chosen = L"C:\\Programmes \u00E0 moi\\Hublink \u00E9t\u00E9";
    installSoftphone(L"C:\\T\u00E9l\u00E9phone de No\u00EBl");
    ASSERT_EQ(install(thisPackage(), L"INSTALLDIR=\"" + chosen + L"\" TYPE=LOTUS"), succeeded) << log();
    EXPECT_EQ(filesBelow(chosen), shippedFiles());
    EXPECT_EQ(registryText(HKEY_LOCAL_MACHINE, runKey, L"Hublink"), L"\"" + chosen + L"\\hublink.exe\"");
    EXPECT_EQ(registryText(HKEY_LOCAL_MACHINE, mapServerKey, L""), L"\"" + chosen + L"\\PavexConvId.exe\"");
    EXPECT_EQ(ini("Application", "type"), "LOTUS");
    ASSERT_EQ(install(nextPackage()), succeeded) << log();
    EXPECT_EQ(filesBelow(chosen), shippedFiles()) << "an upgrade finds the folder";
    EXPECT_FALSE(exists(folder));
    ASSERT_EQ(remove(nextPackage()), succeeded) << log();
    EXPECT_FALSE(exists(chosen));
    EXPECT_FALSE(exists(softphone + L"\\Connector"));
}

TEST_F(Installation, SettingsThatCannotBeWritten_UndoIt)
{
    installSoftphone();
    support::writeFile(softphone + L"\\Connector", "a file where the folder should be");
    EXPECT_EQ(install(thisPackage(), L"TYPE=LOTUS POPUP=false"), refused);
    EXPECT_EQ(installedVersions(), std::multiset<std::wstring>{});
    EXPECT_FALSE(isKey(L"SOFTWARE\\Hublink"));
    ASSERT_TRUE(DeleteFileW((softphone + L"\\Connector").c_str()));
    ASSERT_EQ(install(thisPackage()), succeeded) << log();
    EXPECT_EQ(ini("AllApplication", "PopUp"), "true") << "nothing was remembered";
}

TEST_F(Installation, IniFileThatCannotBeWritten_LeavesNoSettingBehind)
{
    installSoftphone();
    const std::wstring made = softphone + L"\\Connector";
    desk::player::makeFolder(made);
    desk::player::makeFolder(iniFile()); // counts as a file that is there
    EXPECT_EQ(install(thisPackage(), L"TYPE=LOTUS"), refused);
    EXPECT_EQ(filesBelow(made), std::set<std::wstring>{});
    EXPECT_FALSE(isKey(L"SOFTWARE\\Hublink"));
}

TEST_F(Repair, MissingFilesAndRegistryRows_ComeBack_TheEditedIniFileStays)
{
    installSoftphone();
    ASSERT_EQ(install(thisPackage()), succeeded) << log();
    edit(iniFile(), "Application", "type", "LOTUS");
    ASSERT_TRUE(DeleteFileW((std::wstring(folder) + L"\\hublink.exe").c_str()));
    ASSERT_TRUE(DeleteFileW((std::wstring(folder) + L"\\dictionary\\1036.ini").c_str()));
    setRegistryText(HKEY_LOCAL_MACHINE, mapServerKey, L"", L"nonsense");
    ASSERT_EQ(repair(thisPackage()), succeeded) << log();
    EXPECT_EQ(filesBelow(folder), shippedFiles());
    EXPECT_EQ(registryText(HKEY_LOCAL_MACHINE, mapServerKey, L""), L"\"C:\\Program Files\\Hublink\\PavexConvId.exe\"");
    EXPECT_EQ(ini("Application", "type"), "LOTUS");
}

TEST_F(Removal, UneditedIniFile_GoesWithAllTheRest)
{
    installSoftphone();
    ASSERT_EQ(install(thisPackage(), L"TYPE=LOTUS"), succeeded) << log();
    ASSERT_EQ(remove(thisPackage()), succeeded) << log();
    EXPECT_FALSE(exists(folder));
    EXPECT_FALSE(exists(softphone + L"\\Connector"));
    EXPECT_TRUE(exists(softphone));
    EXPECT_FALSE(isKey(L"SOFTWARE\\Hublink"));
    EXPECT_EQ(registryText(HKEY_LOCAL_MACHINE, runKey, L"Hublink"), std::nullopt);
    EXPECT_EQ(registryText(HKEY_LOCAL_MACHINE, mapClassKey, L""), std::nullopt);
    EXPECT_EQ(registryText(HKEY_LOCAL_MACHINE, mapServerKey, L""), std::nullopt);
    EXPECT_FALSE(isInStartMenu(L"Hublink"));
    EXPECT_FALSE(isInStartMenu(L"Hublink Check"));
    EXPECT_EQ(installedVersions(), std::multiset<std::wstring>{});
}

TEST_F(Removal, EditedIniFile_AndAnythingElseInItsFolder_Stay)
{
    installSoftphone();
    ASSERT_EQ(install(thisPackage()), succeeded) << log();
    edit(iniFile(), "AllApplication", "Histo", "false");
    support::writeFile(softphone + L"\\Connector\\notes.txt", "mine");
    ASSERT_EQ(remove(thisPackage()), succeeded) << log();
    EXPECT_FALSE(exists(folder));
    EXPECT_EQ(ini("AllApplication", "Histo"), "false");
    EXPECT_EQ(filesBelow(softphone),
              (std::set<std::wstring>{L"Connector\\notes.txt", L"Connector\\pavexconnector.ini"}));
}

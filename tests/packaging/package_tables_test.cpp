// What the package asks of Windows Installer, where no test run can show it: rights, and
// refusals that Wine's own installer leaves out of its log.
#include "automation/owners.h"
#include "automation/text.h"
#include "setup/first_settings.h"

#include <windows.h>
#include <msi.h>
#include <msiquery.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

namespace {

void require(UINT result, const char* what)
{
    if (result != ERROR_SUCCESS) throw std::runtime_error(std::string(what) + ": error " + std::to_string(result));
}

// The rows of a query, their columns joined by '|'.
std::multiset<std::wstring> rows(const std::wstring& query)
{
    std::wstring package = L"Z:" + automation::toWide(PACKAGE);
    std::replace(package.begin(), package.end(), L'/', L'\\');
    PMSIHANDLE database;
    PMSIHANDLE view;
    require(MsiOpenDatabaseW(package.c_str(), MSIDBOPEN_READONLY, &database), "the package cannot be opened");
    require(MsiDatabaseOpenViewW(database, query.c_str(), &view), "the query is wrong");
    require(MsiViewExecute(view, 0), "the query cannot be run");
    std::multiset<std::wstring> found;
    for (PMSIHANDLE row; MsiViewFetch(view, &row) == ERROR_SUCCESS;) {
        std::wstring text;
        for (UINT number = 1; number <= MsiRecordGetFieldCount(row); ++number) {
            wchar_t column[1024];
            DWORD length = 1024;
            require(MsiRecordGetStringW(row, number, column, &length), "a column is too long");
            text += (number > 1 ? L"|" : L"") + std::wstring(column, length);
        }
        found.insert(text);
    }
    return found;
}

std::wstring only(const std::wstring& query)
{
    const auto found = rows(query);
    return found.size() == 1 ? *found.begin() : std::to_wstring(found.size()) + L" rows";
}

std::wstring property(const std::wstring& name)
{
    return only(L"SELECT `Value` FROM `Property` WHERE `Property` = '" + name + L"'");
}

std::wstring messageFor(const std::wstring& condition)
{
    return only(L"SELECT `Description` FROM `LaunchCondition` WHERE `Condition` = '" + condition + L"'");
}

constexpr int fromPackage = 1;
constexpr int inScript = 0x400;
constexpr int asSystem = 0x800;
constexpr int onFailureOnly = 0x100;
constexpr int goesOn = 0x40;

}

TEST(PackageTables, ForAllUsers_ByAnAdministratorOnly)
{
    EXPECT_EQ(property(L"ALLUSERS"), L"1");
    EXPECT_EQ(messageFor(L"Privileged"),
              L"Hublink is installed for all users of the computer: that takes an administrator's rights.");
}

TEST(PackageTables, EarlierVersion_IsRefusedWithAReason)
{
    EXPECT_EQ(messageFor(L"NOT NEWERVERSION"),
              L"A newer version of Hublink is installed. To go back to this one, remove that one first.");
    EXPECT_EQ(rows(L"SELECT `VersionMin`, `VersionMax`, `Attributes`, `ActionProperty` FROM `Upgrade`"),
              (std::multiset<std::wstring>{L"0.0.0|" PROJECT_VERSION_TEXT L"|768|OLDERVERSION",
                                           PROJECT_VERSION_TEXT L"||2|NEWERVERSION"}));
}

TEST(PackageTables, Version_IsTheProjects_InTheProductAndInItsPrograms)
{
    EXPECT_EQ(property(L"ProductVersion"), PROJECT_VERSION_TEXT);
    EXPECT_EQ(rows(L"SELECT `File`, `Version` FROM `File` WHERE `Version` = '" PROJECT_VERSION_TEXT L".0'").size(),
              rows(L"SELECT `File` FROM `File`").size() - rows(L"SELECT `File_` FROM `MsiFileHash`").size());
}

TEST(PackageTables, WhatChangesTheComputer_RunsWithTheSystemsRights)
{
    const auto type = [](const std::wstring& action) {
        return std::stoi(only(L"SELECT `Type` FROM `CustomAction` WHERE `Action` = '" + action + L"'"));
    };
    for (const wchar_t* action : {L"EndMapServer", L"WriteSettings", L"RemoveSettings"})
        EXPECT_EQ(type(action), fromPackage | inScript | asSystem) << automation::toAnsi(action);
    EXPECT_EQ(type(L"StartHublink"), fromPackage | inScript | asSystem | goesOn);
    EXPECT_EQ(type(L"StartHublinkAgain"), fromPackage | inScript | asSystem | goesOn | onFailureOnly);
    EXPECT_EQ(type(L"StopHublink"), fromPackage);
}

TEST(PackageTables, WhatNobodyTakesBack_ComesAfterAllThatMayFail)
{
    const auto place = [](const std::wstring& action) {
        return std::stoi(only(L"SELECT `Sequence` FROM `InstallExecuteSequence` WHERE `Action` = '" + action + L"'"));
    };
    for (const wchar_t* action : {L"WriteSettings", L"RemoveSettings"}) {
        EXPECT_GT(place(action), place(L"RemoveExistingProducts")) << automation::toAnsi(action);
        EXPECT_GT(place(action), place(L"InstallExecute")) << automation::toAnsi(action);
        EXPECT_LT(place(action), place(L"InstallFinalize")) << automation::toAnsi(action);
    }
}

TEST(PackageTables, AnotherBuildOfTheSameVersion_ReplacesItsFiles)
{
    EXPECT_EQ(property(L"REINSTALLMODE"), L"emus");
}

TEST(PackageTables, NoProgramIsClosedByForce_NoComputerRestartsUnasked)
{
    EXPECT_EQ(property(L"MSIRESTARTMANAGERCONTROL"), L"Disable");
    EXPECT_EQ(property(L"REBOOT"), L"ReallySuppress");
}

TEST(PackageTables, EverySettingOfACommandLine_ReachesTheInstallation)
{
    const std::wstring passed = L";" + property(L"SecureCustomProperties") + L";";
    for (const auto& each : hublink::setup::settingProperties())
        EXPECT_NE(passed.find(L";" + std::wstring(each.property) + L";"), std::wstring::npos)
            << automation::toAnsi(each.property);
    EXPECT_NE(passed.find(L";INSTALLDIR;"), std::wstring::npos);
}

TEST(PackageTables, ValueOfASettingThatMakesNoSense_IsRefusedWithAReason)
{
    EXPECT_EQ(messageFor(L"NOT POPUP OR POPUP=\"true\" OR POPUP=\"false\""),
              L"POPUP is true or false, not \"[POPUP]\".");
    EXPECT_EQ(messageFor(L"NOT TEMPO OR (TEMPO >= 0 AND TEMPO <= 32767)"),
              L"TEMPO is a number, 0 to 32767, not \"[TEMPO]\".");
}

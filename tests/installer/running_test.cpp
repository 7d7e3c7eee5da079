// The installed program at work between softphone and Outlook, and an installation that meets it there.
#include "automation/text.h"
#include "desk/player/desk.h"
#include "installer_test.h"
#include "programs/executable.h"
#include "support/processes.h"

namespace {

using namespace installer;
using desk::player::Process;
using desk::player::waitUntil;

constexpr DWORD soon = 20'000; // milliseconds

class InstalledProgram : public InstallerTest {
protected:
    void SetUp() override
    {
        softphone = desk::player::Desk::softphoneFolder;
        desk.startSoftphone();
        desk.startOutlook("[contact]\nFirstName=Ann\nLastName=Abel\nBusinessTelephoneNumber=0611\n");
        ASSERT_EQ(install(thisPackage(), L"TEMPO=0 TEMPO1=0"), succeeded) << log();
    }

    void TearDown() override
    {
        for (const DWORD process : support::processesNamed(L"hublink.exe")) Process::existing(process).kill();
    }

    void start()
    {
        const Process hublink(std::wstring(folder) + L"\\hublink.exe", L"");
        ASSERT_TRUE(initialised(1));
    }

    // Whether it has been through its start that often.
    bool initialised(std::size_t times)
    {
        return waitUntil(
            [&] {
                const std::wstring journal = desk.outlook(L"journal");
                std::size_t found = 0;
                for (std::size_t at = 0; (at = journal.find(L"Connector Initialization  Ok", at)) != std::wstring::npos;
                     ++at)
                    ++found;
                return found >= times;
            },
            soon);
    }

    desk::player::Desk desk;
};

}

TEST_F(InstalledProgram, Call_ShowsTheContact_KillInTheIniFile_EndsIt)
{
    start();
    desk.softphone(L"call Number=0611 Incoming=true");
    EXPECT_TRUE(desk.outlookShows(L"Ann Abel - Contact"));
    edit(iniFile(), "Application", "kill", "true");
    EXPECT_TRUE(waitUntil([] { return support::processesNamed(L"hublink.exe").empty(); }, soon));
}

TEST_F(InstalledProgram, UpgradeOverIt_AsksItToStop_StartsTheNewOne_KeepsTheMap)
{
    desk.softphone(L"entry add Number=0622 LastName=Bell FirstName=Ben");
    start();
    const std::string map = support::readFile(desk::player::Desk::identifierMapFile());
    EXPECT_GT(map.size(), 16u) << "nothing is mapped";
    const DWORD before = support::processesNamed(L"hublink.exe").at(0);
    ASSERT_EQ(install(nextPackage()), succeeded) << log();
    ASSERT_TRUE(initialised(2));
    EXPECT_NE(support::processesNamed(L"hublink.exe").at(0), before);
    EXPECT_EQ(programs::versionOf(std::wstring(folder) + L"\\hublink.exe").file, automation::toWide(NEXT_VERSION));
    EXPECT_EQ(support::readFile(desk::player::Desk::identifierMapFile()), map);
    EXPECT_EQ(ini("Application", "kill"), "false");
}

TEST_F(InstalledProgram, UpgradeOverItThatFails_StartsItAgain)
{
    start();
    const DWORD before = support::processesNamed(L"hublink.exe").at(0);
    ASSERT_NE(install(failingPackage()), succeeded) << log();
    ASSERT_TRUE(initialised(2));
    const auto running = support::processesNamed(L"hublink.exe");
    ASSERT_EQ(running.size(), 1u);
    EXPECT_NE(running[0], before);
    EXPECT_EQ(ini("Application", "kill"), "false");
}

TEST_F(InstalledProgram, RemovalOverIt_StopsIt_LeavesTheMap)
{
    start();
    ASSERT_EQ(remove(thisPackage()), succeeded) << log();
    EXPECT_EQ(support::processesNamed(L"hublink.exe").size(), 0u);
    EXPECT_EQ(support::processesNamed(L"PavexConvId.exe").size(), 0u);
    EXPECT_FALSE(exists(folder));
    EXPECT_TRUE(exists(desk::player::Desk::identifierMapFile()));
}

// "kill" in the ini file at a start, whatever state the file is in: a request that
// an earlier run left never stops a new one.
#include "form_fixture.h"

#include "automation/text.h"

#include <utility>

namespace hublink {

using shell_tests::iniText;

namespace {

class StopRequestInFile : public shell_tests::FormFixture {
protected:
    // Starts on a file that asks for a stop, or does not, with `access` for others
    // as long as the form lives.
    void startOnHeldFile(const char* kill, DWORD access)
    {
        writeIni(iniText("kill=" + std::string(kill) + "\r\ntempo=123\r\n"));
        hold(access);
        startAgain();
    }

    // Another program has the file open, and shares with others that much.
    void hold(DWORD access)
    {
        held_ = CreateFileW(iniPath().c_str(), GENERIC_READ, access, nullptr, OPEN_EXISTING, 0, nullptr);
        ASSERT_NE(held_, INVALID_HANDLE_VALUE);
    }

    void letGo()
    {
        if (held_ != INVALID_HANDLE_VALUE) CloseHandle(std::exchange(held_, INVALID_HANDLE_VALUE));
    }

    ~StopRequestInFile() override
    {
        letGo();
        SetFileAttributesW(iniPath().c_str(), FILE_ATTRIBUTE_NORMAL);
    }

    // The program runs, with what the file says.
    void expectRunning()
    {
        EXPECT_FALSE(configuration().gStop);
        EXPECT_TRUE(configuration().bgWithOutlook);
        EXPECT_EQ(configuration().tempo, 123);
    }

    support::DummyProgram softphone{folder, L"Pavex.exe"};

private:
    HANDLE held_ = INVALID_HANDLE_VALUE;
};

constexpr const char* bothWays[] = {"true", "false"};

}

TEST_F(StopRequestInFile, WithEveryEncoding_IsSetBack_AndStopsNothing)
{
    for (const std::string kill : bothWays) {
        const std::string rest = "kill=" + kill + "\r\ntype=OUTLOOK\r\ntempo=123\r\n";
        const std::string ansi = "[Application]\r\n; r\xE9glages\r\n" + rest;
        const std::string utf8 = "[Application]\r\n; r\xC3\xA9glages\r\n" + rest;
        const std::string marked = "\xEF\xBB\xBF;\r\n" + utf8;
        const std::string utf16 =
            support::utf16File(L"[Application]\r\n; r\u00E9glages\r\n" + automation::toWide(rest));
        for (const std::string& content : {ansi, utf8, marked, utf16}) {
            writeIni(content);
            startAgain();
            expectRunning();
            EXPECT_EQ(iniValue("Application", "kill"), L"false");
        }
    }
}

TEST_F(StopRequestInFile, ThatCannotBeWritten_StopsNothing)
{
    for (const char* kill : bothWays) {
        startOnHeldFile(kill, FILE_SHARE_READ);
        expectRunning();
        EXPECT_EQ(automation::toAnsi(iniValue("Application", "kill")), kill) << "the file could be written after all";
        for (int time = 0; time < 3; ++time) tick();
        expectRunning();
        letGo();
    }
}

TEST_F(StopRequestInFile, ThatCouldNotBeSetBack_StopsOnceTheFileIsChanged)
{
    startOnHeldFile("true", FILE_SHARE_READ);
    letGo();
    touchIni();
    tick();
    EXPECT_TRUE(configuration().gStop);
    EXPECT_EQ(iniValue("Application", "kill"), L"false");
}

TEST_F(StopRequestInFile, MadeWhileTheFileCannotBeSetBack_StopsAllTheSame_AndNotTheNextRun)
{
    startOnHeldFile("false", FILE_SHARE_READ);
    letGo();
    writeIni(iniText("kill=true\r\ntempo=123\r\n"));
    touchIni();
    hold(FILE_SHARE_READ);
    tick();
    EXPECT_TRUE(configuration().gStop);
    startAgain();
    expectRunning();
}

TEST_F(StopRequestInFile, WriteProtected_StopsNothing)
{
    for (const char* kill : bothWays) {
        SetFileAttributesW(iniPath().c_str(), FILE_ATTRIBUTE_NORMAL);
        writeIni(iniText("kill=" + std::string(kill) + "\r\ntempo=123\r\n"));
        SetFileAttributesW(iniPath().c_str(), FILE_ATTRIBUTE_READONLY);
        startAgain();
        expectRunning();
    }
}

TEST_F(StopRequestInFile, KeptByAnotherProgramToItself_NamesNoGroupware_AndSoStops)
{
    for (const char* kill : bothWays) {
        startOnHeldFile(kill, 0);
        EXPECT_TRUE(configuration().gStop);
        letGo();
    }
}

TEST_F(StopRequestInFile, FileRemoved_ComesFromTheProgramsFolder_AndIsNotStoppedByWhatItSays)
{
    for (const char* kill : bothWays) {
        DeleteFileW(iniPath().c_str());
        folder.write(L"program\\pavexconnector.ini", iniText("kill=" + std::string(kill) + "\r\ntempo=123\r\n"));
        startAgain();
        expectRunning();
        EXPECT_EQ(iniValue("Application", "kill"), L"false");
    }
}

}

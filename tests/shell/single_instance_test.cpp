// One Hublink a user session: with this test's own claim, and with the real program.
#include "form_fixture.h"

#include "automation/text.h"
#include "shell/file_time.h"
#include "shell/single_instance.h"

namespace hublink {

using shell_tests::iniText;

namespace {

using SecondStart = shell_tests::FormFixture;

// Runs the built program; its exit code, or none if it goes on running.
std::optional<DWORD> runProgram()
{
    std::wstring program = support::testProgramFolder() + L"\\hublink.exe";
    STARTUPINFOW start{};
    start.cb = sizeof start;
    PROCESS_INFORMATION process{};
    if (!CreateProcessW(program.c_str(), nullptr, nullptr, nullptr, FALSE, 0, nullptr, nullptr, &start, &process))
        return std::nullopt;
    std::optional<DWORD> result;
    if (WaitForSingleObject(process.hProcess, 15'000) == WAIT_OBJECT_0) {
        DWORD code = 0;
        GetExitCodeProcess(process.hProcess, &code);
        result = code;
    } else {
        TerminateProcess(process.hProcess, 0);
    }
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
    return result;
}

}

TEST(SingleInstance, FirstIsFirst_UntilItEnds)
{
    {
        const SingleInstance first;
        EXPECT_TRUE(first.isFirst());
        const SingleInstance second;
        EXPECT_FALSE(second.isFirst());
    }
    const SingleInstance afterwards;
    EXPECT_TRUE(afterwards.isFirst());
}

TEST_F(SecondStart, EndsWithCodeZero_AndTouchesNothing)
{
    const SingleInstance first;
    writeIni(iniText("kill=true\r\n"));
    const std::string before = support::readFile(iniPath());
    EXPECT_EQ(runProgram(), std::optional<DWORD>(0));
    EXPECT_EQ(support::readFile(iniPath()), before);
}

TEST(FileTime, MissingFile_HasNone)
{
    const support::ScratchFolder folder;
    EXPECT_FALSE(modificationTime(folder.file(L"missing")));
    EXPECT_FALSE(modificationTime(L""));
    EXPECT_TRUE(modificationTime(folder.write(L"here", "x")));
    EXPECT_TRUE(modificationTime(folder.path()));
}

TEST(FileTime, Times_AreTheSameToTheLastTick)
{
    EXPECT_TRUE(sameTime({1, 2}, {1, 2}));
    EXPECT_FALSE(sameTime({1, 2}, {2, 2}));
    EXPECT_FALSE(sameTime({1, 2}, {1, 3}));
}

}

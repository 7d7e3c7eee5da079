// One Hublink a user session: with this test's own claim, and with the real program.
#include "form_fixture.h"

#include "automation/text.h"
#include "shell/file_time.h"
#include "shell/single_instance.h"

namespace hublink {

using shell_tests::iniText;

namespace {

using SecondStart = shell_tests::FormFixture;

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
    EXPECT_EQ(support::Process(support::command(L"hublink.exe")).exitCode(), 0u);
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

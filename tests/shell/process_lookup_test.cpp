// Whether a program runs, and what asking costs: nothing, however often.
#include "shell/process_lookup.h"

#include "support/dummy_program.h"
#include "support/handle_count.h"

#include <gtest/gtest.h>

namespace hublink {

namespace {

constexpr const wchar_t* name = L"hublink_test_program.exe";

HANDLE const untouched = reinterpret_cast<HANDLE>(0x1234);

class Look : public testing::Test {
protected:
    bool find(const wchar_t* program)
    {
        handle = nullptr;
        processId = 0;
        return lookup.GetProcessHandle(program, handle, processId);
    }

    const support::ScratchFolder folder;
    ProcessLookup lookup;
    HANDLE handle = nullptr;
    DWORD processId = 0;
};

}

TEST_F(Look, RunningProgram_IsFoundWithHandleAndIdentifier)
{
    const support::DummyProgram program(folder, name);
    EXPECT_TRUE(find(name));
    EXPECT_NE(handle, nullptr);
    EXPECT_EQ(processId, program.processId());
}

TEST_F(Look, Name_IsComparedWithoutRegardToCase)
{
    const support::DummyProgram program(folder, L"Hublink_Test_PROGRAM.exe");
    EXPECT_TRUE(find(L"HUBLINK_test_program.EXE"));
    EXPECT_EQ(processId, program.processId());
}

TEST_F(Look, PartOfAName_IsNotTheName)
{
    const support::DummyProgram program(folder, name);
    EXPECT_FALSE(find(L"hublink_test_program"));
    EXPECT_FALSE(find(L"test_program.exe"));
}

TEST_F(Look, ProgramThatDoesNotRun_LeavesTheArgumentsAsTheyAre)
{
    handle = untouched;
    processId = 77;
    EXPECT_FALSE(lookup.GetProcessHandle(L"hublink_test_absent.exe", handle, processId));
    EXPECT_EQ(handle, untouched);
    EXPECT_EQ(processId, 77u);
}

TEST_F(Look, ProgramThatEnded_IsNotFound_ThoughItsHandleIsKept)
{
    support::DummyProgram program(folder, name);
    ASSERT_TRUE(find(name));
    program.end();
    EXPECT_FALSE(find(name));
    EXPECT_EQ(handle, nullptr);
}

TEST_F(Look, ProgramStartedAgainAtOnce_IsMissingOnce_ThenFoundWithItsNewIdentifier)
{
    support::DummyProgram first(folder, name);
    ASSERT_TRUE(find(name));
    first.end();
    const support::DummyProgram second(folder, name);
    EXPECT_FALSE(find(name));
    EXPECT_EQ(handle, nullptr);
    EXPECT_TRUE(find(name));
    EXPECT_EQ(processId, second.processId());
    EXPECT_EQ(WaitForSingleObject(handle, 0), DWORD{WAIT_TIMEOUT}) << "the handle is the running program's";
    EXPECT_TRUE(find(name)) << "once only";
}

TEST_F(Look, ProgramThatWasMissing_IsFoundAtOnceWhenItIsBack)
{
    support::DummyProgram first(folder, name);
    ASSERT_TRUE(find(name));
    first.end();
    ASSERT_FALSE(find(name));
    ASSERT_FALSE(find(name));
    const support::DummyProgram second(folder, name);
    EXPECT_TRUE(find(name));
    EXPECT_EQ(processId, second.processId());
}

TEST_F(Look, AnotherLookUp_DoesNotUseTheOneAnswerUp)
{
    support::DummyProgram first(folder, name);
    ASSERT_TRUE(find(name));
    first.end();
    const support::DummyProgram second(folder, name);
    DWORD found = 0;
    EXPECT_TRUE(ProcessLookup().GetProcessHandle(name, handle, found));
    EXPECT_EQ(found, second.processId());
    EXPECT_FALSE(find(name));
}

TEST_F(Look, RestartOfOneProgram_IsNothingToAnother)
{
    const support::ScratchFolder other;
    const support::DummyProgram neighbour(other, L"hublink_test_neighbour.exe");
    support::DummyProgram first(folder, name);
    ASSERT_TRUE(find(L"hublink_test_neighbour.exe"));
    ASSERT_TRUE(find(name));
    first.end();
    EXPECT_TRUE(find(L"hublink_test_neighbour.exe"));
    EXPECT_FALSE(find(name));
}

TEST_F(Look, ProgramStartedBetweenTwoLooks_IsFound)
{
    EXPECT_FALSE(find(name));
    const support::DummyProgram program(folder, name);
    EXPECT_TRUE(find(name));
}

TEST_F(Look, FirstOfTwoInstancesEnds_IsMissingOnce_ThenTheSecondIsFound)
{
    const support::ScratchFolder other;
    support::DummyProgram first(folder, name);
    const support::DummyProgram second(other, name);
    ASSERT_TRUE(find(name));
    ASSERT_EQ(processId, first.processId());
    first.end();
    EXPECT_FALSE(find(name));
    EXPECT_TRUE(find(name));
    EXPECT_EQ(processId, second.processId());
}

TEST_F(Look, SecondOfTwoInstancesEnds_TheFirstIsFollowedOn)
{
    const support::ScratchFolder other;
    const support::DummyProgram first(folder, name);
    ASSERT_TRUE(find(name));
    support::DummyProgram second(other, name);
    second.end();
    EXPECT_TRUE(find(name));
    EXPECT_EQ(processId, first.processId());
}

TEST_F(Look, ManyLooks_HandOutTheSameHandle_AndGainNone)
{
    const support::DummyProgram program(folder, name);
    ASSERT_TRUE(find(name));
    const HANDLE first = handle;
    const int before = support::openHandles();
    for (int time = 0; time < 1000; ++time) {
        ASSERT_TRUE(find(name));
        ASSERT_EQ(handle, first);
        ASSERT_FALSE(find(L"hublink_test_absent.exe"));
    }
    EXPECT_EQ(support::openHandles(), before);
}

TEST_F(Look, ProgramsThatComeAndGo_GainNoHandle)
{
    const auto comeAndGo = [&] {
        support::DummyProgram program(folder, name);
        ASSERT_TRUE(find(name));
        program.end();
        ASSERT_FALSE(find(name));
    };
    comeAndGo();
    const int before = support::openHandles();
    for (int time = 0; time < 3; ++time) comeAndGo();
    EXPECT_EQ(support::openHandles(), before);
}

TEST(ProcessLookup, ItsEnd_ClosesWhatItKept)
{
    const support::ScratchFolder folder;
    const support::DummyProgram program(folder, name);
    const int before = support::openHandles();
    {
        ProcessLookup lookup;
        HANDLE handle = nullptr;
        DWORD processId = 0;
        EXPECT_TRUE(lookup.GetProcessHandle(name, handle, processId));
        EXPECT_EQ(support::openHandles(), before + 1);
    }
    EXPECT_EQ(support::openHandles(), before);
}

}

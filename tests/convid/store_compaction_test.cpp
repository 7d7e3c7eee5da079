// The file is written anew when most of it is dead; a process killed meanwhile
// loses nothing that was answered.
#include "automation/owners.h"
#include "store_files.h"
#include "support/process.h"

#include <gtest/gtest.h>

using namespace convid_tests;
using convid::IdentifierStore;

namespace {

constexpr int insertionsBeforeDeath = 25;
constexpr convid::StoreOptions compactsEarly{.compactionFloor = 10, .timeout = 50};

convid::IdentifierRecord version(int number)
{
    return record(L"5.7", L"version " + std::to_wstring(number), 0, 1);
}

class Compaction : public testing::Test {
protected:
    ScratchFolder folder;
    const std::wstring path = folder.file(L"map");
};

}

TEST_F(Compaction, RecordReplacedOften_LeavesASmallFile_WithItsLastVersion)
{
    IdentifierStore store(path, compactsEarly);
    store.insert(record(L"8.8", L"stays", 1, 0));
    for (int number = 0; number < 200; ++number) store.insert(version(number));
    EXPECT_LT(contents(path).size(), 1'500u);
    const Records expected{{{L"5.7", 0}, version(199)}, {{L"8.8", 1}, record(L"8.8", L"stays", 1, 0)}};
    EXPECT_EQ(everything(store), expected);
    store.close();
    EXPECT_EQ(everything(store), expected);
    EXPECT_EQ(folder.files(), std::vector<std::wstring>{L"map"});
}

TEST_F(Compaction, FewDeadEntries_AreLeftAlone)
{
    IdentifierStore store(path, compactsEarly);
    std::size_t size = 0;
    for (int number = 0; number < 10; ++number) { // nine dead ones, less than the floor
        store.insert(version(number));
        EXPECT_GT(contents(path).size(), size);
        size = contents(path).size();
    }
}

TEST_F(Compaction, DeadEntriesFewerThanLiveOnes_AreLeftAlone)
{
    IdentifierStore store(path, compactsEarly);
    for (int number = 0; number < 40; ++number) store.insert(record(L"1." + std::to_wstring(number), L"live", 0, 1));
    std::size_t size = contents(path).size();
    for (int number = 0; number < 30; ++number) {
        store.insert(version(number));
        EXPECT_GT(contents(path).size(), size);
        size = contents(path).size();
    }
}

TEST_F(Compaction, EverythingRemoved_LeavesAnEmptyStore)
{
    IdentifierStore store(path, compactsEarly);
    for (int number = 0; number < 20; ++number) store.insert(record(L"1." + std::to_wstring(number), L"x", 0, 1));
    for (int number = 0; number < 20; ++number) store.remove(L"1." + std::to_wstring(number), 0);
    EXPECT_TRUE(everything(store).empty());
    store.close();
    EXPECT_TRUE(everything(store).empty());
    EXPECT_LT(contents(path).size(), 1'500u);
}

TEST_F(Compaction, KilledWhileWritingTheReplacement_OldFileCounts_AndTheRestIsTidiedAway)
{
    {
        IdentifierStore store(path);
        store.insert(version(1));
    }
    // Whatever a killed process may have left: nothing yet, a part, all of it.
    for (const auto& left : {convid::Bytes{}, convid::Bytes{'I', 'D', 'M'}, convid::fileHeader()}) {
        writeContents(path + L".new", left);
        IdentifierStore store(path);
        EXPECT_EQ(everything(store), (Records{{{L"5.7", 0}, version(1)}}));
        EXPECT_EQ(folder.files(), std::vector<std::wstring>{L"map"});
    }
}

TEST_F(Compaction, ReplacementCannotBeWritten_InsertionStillSucceeds_AndIsKept)
{
    CreateDirectoryW((path + L".new").c_str(), nullptr);
    IdentifierStore store(path, compactsEarly);
    for (int number = 0; number < 100; ++number) ASSERT_NO_THROW(store.insert(version(number)));
    EXPECT_EQ(everything(store), (Records{{{L"5.7", 0}, version(99)}}));
    store.close();
    EXPECT_EQ(everything(store), (Records{{{L"5.7", 0}, version(99)}}));
    RemoveDirectoryW((path + L".new").c_str());
}

TEST_F(Compaction, FileReadByAnotherProgramWhileReplaced_InsertionStillSucceeds_AndIsKept)
{
    IdentifierStore store(path, compactsEarly);
    store.insert(version(0));
    automation::Handle reader = automation::ownedIfValid(CreateFileW(
        path.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_EXISTING, 0, nullptr));
    ASSERT_TRUE(reader);
    for (int number = 1; number < 60; ++number) ASSERT_NO_THROW(store.insert(version(number)));
    reader.reset();
    EXPECT_EQ(everything(store), (Records{{{L"5.7", 0}, version(59)}}));
    for (int number = 60; number < 200; ++number) store.insert(version(number));
    store.close();
    EXPECT_EQ(everything(store), (Records{{{L"5.7", 0}, version(199)}}));
}

// A process inserts and compacts without pause, notes each answered insertion,
// and is killed at forty different moments.
TEST_F(Compaction, ProcessKilledAtAnyMoment_LosesNoAnsweredInsertion)
{
    for (int round = 0; round < 40 && !HasFailure(); ++round) {
        const HANDLE shared =
            CreateFileMappingW(INVALID_HANDLE_VALUE, nullptr, PAGE_READWRITE, 0, 4, L"convid-answered");
        auto* const answered = static_cast<volatile LONG*>(MapViewOfFile(shared, FILE_MAP_WRITE, 0, 0, 4));
        ASSERT_TRUE(answered);
        *answered = -1;
        {
            const support::Process victim(support::command(L"convid_victim.exe") + L" store \"" + path + L"\"");
            // Some compactions have been made then, and the next step may be any.
            const int enough = insertionsBeforeDeath + round % 10;
            for (int wait = 0; *answered < enough && wait < 10'000; ++wait) Sleep(1);
            ASSERT_GE(*answered, enough) << "the process does not insert";
            Sleep(static_cast<DWORD>(round % 7));
            victim.kill();
        }
        IdentifierStore store(path, compactsEarly);
        const auto found = store.find(L"5.7", 0);
        ASSERT_TRUE(found);
        const int kept = std::stoi(found->idAppli);
        EXPECT_GE(kept, *answered);
        EXPECT_LE(kept, *answered + 1); // the one on its way may have arrived
        EXPECT_TRUE(store.find(L"8.8", 1));
        store.close();
        UnmapViewOfFile(const_cast<LONG*>(answered));
        CloseHandle(shared);
        const auto names = folder.files();
        EXPECT_EQ(names, std::vector<std::wstring>{L"map"});
    }
}

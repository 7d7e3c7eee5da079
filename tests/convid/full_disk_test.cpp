// Run with a limit on the size of files (with_full_disk.sh): a write beyond it
// fails part of the way, as on a full disk.
#include "automation/error.h"
#include "automation/object.h"
#include "convid/map_object.h"
#include "store_files.h"

#include <gtest/gtest.h>

using namespace convid_tests;
using automation::AutomationError;

namespace {

// Small enough to get near the limit, and no divisor of it.
convid::IdentifierRecord numbered(int number)
{
    return record(L"1." + std::to_wstring(number), std::wstring(150, L'E'), 0, 1);
}

// Inserts until the disk is full; returns how many insertions were answered.
int fill(convid::IdentifierStore& store)
{
    for (int number = 0; number < 10'000; ++number) {
        try {
            store.insert(numbered(number));
        } catch (const std::exception&) {
            return number;
        }
    }
    ADD_FAILURE() << "the disk is not full: run this through with_full_disk.sh";
    return 0;
}

}

TEST(StoreOnFullDisk, FailedInsertion_IsForgotten_InMemoryAndInFile_AllOthersStay)
{
    const ScratchFolder folder;
    convid::IdentifierStore store(folder.file(L"map"));
    const int answered = fill(store);
    ASSERT_GT(answered, 5);
    std::size_t size = convid::headerSize;
    for (int number = 0; number < answered; ++number) size += convid::insertEntry(numbered(number)).size();
    EXPECT_EQ(contents(folder.file(L"map")).size(), size) << "the half-written entry is not cut off";
    EXPECT_EQ(everything(store).size(), static_cast<std::size_t>(answered));
    EXPECT_FALSE(store.find(numbered(answered).idOrvel, 0));
    EXPECT_ANY_THROW(store.insert(numbered(answered)));
    EXPECT_EQ(contents(folder.file(L"map")).size(), size);

    store.close();
    EXPECT_EQ(everything(store).size(), static_cast<std::size_t>(answered));
    EXPECT_EQ(folder.files(), std::vector<std::wstring>{L"map"});
}

TEST(StoreOnFullDisk, SmallerEntryThatStillFits_IsKept)
{
    const ScratchFolder folder;
    convid::IdentifierStore store(folder.file(L"map"));
    const int answered = fill(store);
    store.remove(L"1.0", 0);
    store.close();
    EXPECT_EQ(everything(store).size(), static_cast<std::size_t>(answered) - 1);
}

TEST(StoreOnFullDisk, Client_GetsAnErrorWithSourceAndDescription)
{
    const ScratchFolder folder;
    const auto store = std::make_shared<convid::IdentifierStore>(folder.file(L"map"));
    const automation::Object map(automation::server::make<convid::MapObject>(store).get());
    fill(*store);
    try {
        map.call(L"InsertId", {std::wstring(1000, L'E'), L"9.9", std::int32_t{0}, std::int32_t{1}});
        ADD_FAILURE() << "no error";
    } catch (const AutomationError& error) {
        EXPECT_EQ(error.source(), L"PavexConvId");
        EXPECT_NE(error.description().find(L"cannot be written"), std::wstring::npos);
    }
}

TEST(StoreOnFullDisk, DamagedStore_IsLeftUntouched_UntilThereIsRoom)
{
    const ScratchFolder folder;
    convid::IdentifierStore store(folder.file(L"map"), shortTimeout);
    fill(store);
    store.close();
    auto damaged = contents(folder.file(L"map"));
    damaged[30] ^= 1;
    writeContents(folder.file(L"map"), damaged);
    // The limit is for each file, so a folder stands for the room that is missing.
    CreateDirectoryW(folder.file(L"map.new").c_str(), nullptr);
    EXPECT_ANY_THROW(store.find(L"1.1", 0));
    EXPECT_EQ(contents(folder.file(L"map")), damaged);
    EXPECT_EQ(folder.files(), (std::vector<std::wstring>{L"map", L"map.new"}));
    RemoveDirectoryW(folder.file(L"map.new").c_str());
    EXPECT_TRUE(store.find(L"1.1", 0));
    EXPECT_EQ(contents(folder.file(L"map.damaged-1")), damaged);
}

// Looking into a store without touching it.
#include "convid/store_reading.h"

#include "automation/owners.h"
#include "convid/checksum.h"
#include "store_files.h"

#include <gtest/gtest.h>

using namespace convid_tests;
using convid::IdentifierStore;
using convid::readStore;
using convid::StoreReading;
using convid::StoreState;

namespace {

class Reading : public testing::Test {
protected:
    // Three records, one of them replaced and one removed again.
    void fill()
    {
        IdentifierStore store(path);
        store.insert(record(L"5.7", L"entry", 0, 1));
        store.insert(record(L"5.8", L"old", 1, 0));
        store.insert(record(L"5.8", L"new", 1, 0));
        store.insert(record(L"5.9", L"gone", 0, 1));
        store.remove(L"5.9", 0);
    }

    // The same bytes, and no other file.
    StoreReading readUntouched() const
    {
        const auto names = folder.files();
        const auto before = contents(path);
        const StoreReading reading = readStore(path);
        EXPECT_EQ(contents(path), before);
        EXPECT_EQ(folder.files(), names);
        return reading;
    }

    static Records recordsOf(const StoreReading& reading)
    {
        Records result;
        for (const auto& each : reading.records) result.emplace(Key{each->idOrvel, each->typApplication}, *each);
        return result;
    }

    const ScratchFolder folder;
    const std::wstring path = folder.file(L"map");
    const Records filled{{{L"5.7", 0}, record(L"5.7", L"entry", 0, 1)}, {{L"5.8", 1}, record(L"5.8", L"new", 1, 0)}};
};

}

TEST_F(Reading, SoundStore_GivesItsLiveRecords_AndIsUntouched)
{
    fill();
    const StoreReading reading = readUntouched();
    EXPECT_EQ(reading.state, StoreState::sound);
    EXPECT_EQ(recordsOf(reading), filled);
    EXPECT_FALSE(reading.hasReplacement);
    EXPECT_EQ(reading.damagedCopies, 0u);
}

TEST_F(Reading, MissingStore_IsNotMade)
{
    EXPECT_EQ(readStore(path).state, StoreState::missing);
    EXPECT_EQ(readStore(folder.file(L"nowhere") + L"\\map").state, StoreState::missing);
    EXPECT_TRUE(folder.files().empty());
}

TEST_F(Reading, EmptyStore_IsBlank_AndStaysEmpty)
{
    writeContents(path, {});
    EXPECT_EQ(readUntouched().state, StoreState::blank);
}

TEST_F(Reading, StoreCutInItsLastEntry_IsUnfinished_AndNotRepaired)
{
    fill();
    auto bytes = contents(path);
    bytes.resize(bytes.size() - 3);
    writeContents(path, bytes);
    const StoreReading reading = readUntouched();
    EXPECT_EQ(reading.state, StoreState::unfinished);
    EXPECT_EQ(reading.records.size(), 3u) << "the removal is the entry that is cut";
}

TEST_F(Reading, DamagedStore_GivesWhatIsSound_AndIsNotRepaired)
{
    fill();
    auto bytes = contents(path);
    bytes[30] ^= 0xFF;
    writeContents(path, bytes);
    const StoreReading reading = readUntouched();
    EXPECT_EQ(reading.state, StoreState::damaged);
    EXPECT_EQ(reading.records.size(), 1u);
}

TEST_F(Reading, BinaryNoise_IsDamaged_AndHoldsNothing)
{
    std::vector<std::uint8_t> noise;
    for (unsigned index = 0; index < 100'000; ++index)
        noise.push_back(static_cast<std::uint8_t>(index * 2654435761u >> 13));
    writeContents(path, noise);
    const StoreReading reading = readUntouched();
    EXPECT_EQ(reading.state, StoreState::damaged);
    EXPECT_TRUE(reading.records.empty());
}

TEST_F(Reading, StoreOfANewerProgram_IsNewer)
{
    std::vector<std::uint8_t> header{'I', 'D', 'M', 'A', 'P', '\r', '\n', 0x1A, 2, 0, 0, 0};
    const std::uint32_t check = convid::crc32(header);
    for (int shift = 0; shift < 32; shift += 8) header.push_back(static_cast<std::uint8_t>(check >> shift));
    writeContents(path, header);
    const StoreReading reading = readUntouched();
    EXPECT_EQ(reading.state, StoreState::newer);
    EXPECT_EQ(reading.failure, DWORD{ERROR_UNKNOWN_REVISION});
}

TEST_F(Reading, FolderInTheStoresPlace_IsUnreadable)
{
    CreateDirectoryW(path.c_str(), nullptr);
    const StoreReading reading = readStore(path);
    EXPECT_EQ(reading.state, StoreState::unreadable);
    EXPECT_EQ(reading.failure, DWORD{ERROR_ACCESS_DENIED});
}

TEST_F(Reading, StoreThatSomebodyKeepsToHimself_IsUnreadable)
{
    fill();
    automation::Handle holder =
        automation::ownedIfValid(CreateFileW(path.c_str(), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr));
    ASSERT_TRUE(holder);
    const StoreReading reading = readStore(path);
    holder.reset();
    EXPECT_EQ(reading.state, StoreState::unreadable);
    EXPECT_EQ(reading.failure, DWORD{ERROR_SHARING_VIOLATION});
}

TEST_F(Reading, StoreThatItsServerHasOpen_IsRead_AndWrittenOn)
{
    IdentifierStore store(path);
    store.insert(record(L"5.7", L"entry", 0, 1));
    EXPECT_EQ(readStore(path).records.size(), 1u);
    store.insert(record(L"5.8", L"entry", 0, 1));
    const StoreReading reading = readStore(path);
    EXPECT_EQ(reading.state, StoreState::sound);
    EXPECT_EQ(recordsOf(reading), everything(store));
}

// The reader's handle, as long as it is open.
TEST_F(Reading, ReaderAtWork_KeepsNoServerFromOpeningWritingOrRemoving)
{
    fill();
    const convid::LogFile reader = convid::LogFile::openForReading(path, 0);
    IdentifierStore store(path, shortTimeout);
    EXPECT_NO_THROW(store.insert(record(L"6.1", L"entry", 0, 1)));
    store.close();
    EXPECT_TRUE(DeleteFileW(path.c_str()));
}

TEST_F(Reading, WhatLiesBesideTheStore_IsTold_AndLeftThere)
{
    fill();
    writeContents(folder.file(L"map.new"), {1});
    writeContents(folder.file(L"map.damaged-1"), {1});
    writeContents(folder.file(L"map.damaged-2"), {1});
    const StoreReading reading = readUntouched();
    EXPECT_TRUE(reading.hasReplacement);
    EXPECT_EQ(reading.damagedCopies, 2u);
    EXPECT_EQ(folder.files().size(), 4u);
}

// Files that were not written to their end, and files that are not what was
// written.
#include "store_files.h"

#include <gtest/gtest.h>

using namespace convid_tests;
using convid::IdentifierStore;

namespace {

constexpr std::size_t headerEnd = 16;

// One change of a store, and where the file ended after it.
struct Change {
    convid::IdentifierRecord record;
    bool removes;
    std::size_t end;
};

class DamagedStore : public testing::Test {
protected:
    void SetUp() override
    {
        IdentifierStore store(path);
        change(store, record(L"5.7", L"EntryOne", 0, 1), false);
        change(store, record(L"5.7", L"Note", 1, 1), false);
        change(store, record(L"1.\u4E2D", L"\xD800", 0, 0), false); // a lone surrogate
        change(store, record(L"5.7", L"", 1, 0), true);
        change(store, record(L"5.7", L"EntryTwo", 0, 0), false);
        change(store, record(L"9.9", std::wstring(20, L'\0'), 1, 1), false);
        store.close();
        whole = contents(path);
    }

    // What the changes make when those are left out that `skips` names.
    template <class Skips>
    Records without(Skips skips) const
    {
        Records result;
        std::size_t begin = headerEnd;
        for (const Change& change : changes) {
            const Key key{change.record.idOrvel, change.record.typApplication};
            if (!skips(begin, change.end)) {
                if (change.removes) result.erase(key);
                else result.insert_or_assign(key, change.record);
            }
            begin = change.end;
        }
        return result;
    }

    // The store of these bytes tells `expected`, goes on working, and is sound
    // when it is opened once more.
    void expectRecovery(const std::vector<std::uint8_t>& bytes, Records expected, bool keptAside) const
    {
        folder.clear();
        writeContents(path, bytes);
        IdentifierStore store(path);
        EXPECT_EQ(everything(store), expected);
        const auto added = record(L"77.1", L"added later", 0, 1);
        store.insert(added);
        store.close();

        expected.emplace(Key{L"77.1", 0}, added);
        EXPECT_EQ(everything(store), expected);
        store.close();
        std::vector<std::wstring> names{L"identifiers.map"};
        if (keptAside) names.emplace_back(L"identifiers.map.damaged-1");
        EXPECT_EQ(folder.files(), names);
        if (keptAside) {
            EXPECT_EQ(contents(path + L".damaged-1"), bytes);
        }
    }

    ScratchFolder folder;
    const std::wstring path = folder.file(L"identifiers.map");
    std::vector<Change> changes;
    std::vector<std::uint8_t> whole;

private:
    void change(IdentifierStore& store, const convid::IdentifierRecord& changed, bool removes)
    {
        if (removes) store.remove(changed.idOrvel, changed.typApplication);
        else store.insert(changed);
        changes.push_back({changed, removes, contents(path).size()});
    }
};

}

TEST_F(DamagedStore, FileCutAtEveryByte_KeepsEveryEntryBeforeTheCut_AndSetsNothingAside)
{
    for (std::size_t size = 0; size <= whole.size() && !HasFailure(); ++size) {
        SCOPED_TRACE("cut at byte " + std::to_string(size));
        const std::vector<std::uint8_t> cut(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(size));
        expectRecovery(cut, without([&](std::size_t, std::size_t end) { return end > size; }), false);
    }
}

TEST_F(DamagedStore, TornTail_IsCutOff_SoThatFileEndsWithLastGoodEntry)
{
    const std::size_t lastGood = changes[changes.size() - 2].end;
    std::vector<std::uint8_t> torn = whole;
    torn.resize(whole.size() - 1);
    writeContents(path, torn);
    IdentifierStore store(path);
    store.find(L"5.7", 0);
    store.close();
    whole.resize(lastGood);
    EXPECT_EQ(contents(path), whole);
}

TEST_F(DamagedStore, EveryByteFlipped_LosesOnlyTheEntryItIsIn_AndKeepsTheDamagedFile)
{
    for (const std::uint8_t mask : std::initializer_list<std::uint8_t>{0xFF, 0x01})
        for (std::size_t place = 0; place < whole.size() && !HasFailure(); ++place) {
            SCOPED_TRACE("byte " + std::to_string(place) + " flipped with " + std::to_string(mask));
            auto flipped = whole;
            flipped[place] ^= mask;
            const auto holds = [&](std::size_t begin, std::size_t end) { return place >= begin && place < end; };
            expectRecovery(flipped, without(holds), true);
        }
}

TEST_F(DamagedStore, BytesInsertedOrMissingInTheMiddle_LoseOnlyTheEntryTheyAreIn)
{
    const std::size_t begin = changes[1].end;
    const std::size_t end = changes[2].end;
    const auto holds = [&](std::size_t from, std::size_t) { return from == begin; };
    auto longer = whole;
    longer.insert(longer.begin() + static_cast<std::ptrdiff_t>(begin) + 5, 700, 0xAA);
    expectRecovery(longer, without(holds), true);

    auto shorter = whole;
    shorter.erase(shorter.begin() + static_cast<std::ptrdiff_t>(begin) + 5,
                  shorter.begin() + static_cast<std::ptrdiff_t>(end) - 3);
    expectRecovery(shorter, without(holds), true);
}

TEST_F(DamagedStore, ZerosInPlaceOfTheTail_AsAfterAPowerFailure_AreCutOff)
{
    auto grown = whole;
    grown.resize(whole.size() + 5'000);
    expectRecovery(grown, without([](std::size_t, std::size_t) { return false; }), false);
}

TEST_F(DamagedStore, ZerosWithSomethingBehindThem_AreDamage)
{
    auto grown = whole;
    grown.resize(whole.size() + 500);
    grown.push_back(1);
    expectRecovery(grown, without([](std::size_t, std::size_t) { return false; }), true);
}

TEST_F(DamagedStore, FileOfSomethingElse_IsKeptAside_AndAnEmptyStoreTakesItsPlace)
{
    const std::string text = "[General]\r\nthis is no store at all\r\n";
    expectRecovery({text.begin(), text.end()}, {}, true);
    expectRecovery({'x'}, {}, true);
}

TEST_F(DamagedStore, MegabytesOfGarbage_LoseNoRecordBeforeThem)
{
    std::vector<std::uint8_t> garbage = whole;
    std::uint32_t random = 1;
    for (int count = 0; count < 8'000'000; ++count) {
        random = random * 1664525u + 1013904223u;
        garbage.push_back(static_cast<std::uint8_t>(random >> 24));
    }
    expectRecovery(garbage, without([](std::size_t, std::size_t) { return false; }), true);
}

TEST_F(DamagedStore, SecondDamage_IsKeptUnderTheNextNumber_AndTheFirstIsUntouched)
{
    auto first = whole;
    first[headerEnd + 10] ^= 1;
    auto second = whole;
    second[headerEnd + 11] ^= 1;
    for (const auto& damaged : {first, second}) {
        writeContents(path, damaged);
        IdentifierStore store(path);
        store.find(L"5.7", 0);
    }
    EXPECT_EQ(contents(path + L".damaged-1"), first);
    EXPECT_EQ(contents(path + L".damaged-2"), second);
}

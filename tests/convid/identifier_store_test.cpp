#include "convid/store_error.h"
#include "store_files.h"

#include <gtest/gtest.h>

using namespace convid_tests;
using convid::IdentifierStore;
using convid::StoreError;

namespace {

class Store : public testing::Test {
protected:
    // What a store opened later, by another process, finds.
    Records reopened() const
    {
        IdentifierStore later(path);
        return everything(later);
    }

    ScratchFolder folder;
    const std::wstring path = folder.file(L"identifiers.map");
    IdentifierStore store{path};
};

std::wstring unicodeIdentifier(std::size_t length)
{
    // Umlauts, Greek, Chinese, a pair of surrogates and a lone one.
    const std::wstring pattern = L"\u00E4\u03A9\u4E2D\xD83D\xDCDE\xDC00";
    std::wstring text;
    while (text.size() < length) text += pattern[text.size() % pattern.size()];
    return text;
}

}

TEST_F(Store, NewStore_IsEmpty)
{
    EXPECT_TRUE(everything(store).empty());
    EXPECT_FALSE(store.find(L"5.7", 0));
}

TEST_F(Store, InsertedRecord_IsFound_AtOnceAndInANewStore)
{
    const auto inserted = record(L"5.7", L"00000000ABCDEF", 0, 1);
    store.insert(inserted);
    const auto found = store.find(L"5.7", 0);
    ASSERT_TRUE(found);
    EXPECT_EQ(*found, inserted);

    store.close();
    EXPECT_EQ(reopened(), (Records{{{L"5.7", 0}, inserted}}));
}

TEST_F(Store, SameIdentifierForOutlookAndForLotus_AreTwoRecords)
{
    store.insert(record(L"5.7", L"entry", 0, 1));
    store.insert(record(L"5.7", L"note", 1, 1));
    EXPECT_EQ(store.find(L"5.7", 0)->idAppli, L"entry");
    EXPECT_EQ(store.find(L"5.7", 1)->idAppli, L"note");
    EXPECT_FALSE(store.find(L"5.7", 2));
}

TEST_F(Store, RepeatedKey_ReplacesRecord_ItsCollectionToo)
{
    store.insert(record(L"5.7", L"first", 0, 1));
    store.insert(record(L"5.7", L"second", 0, 0));
    const Records expected{{{L"5.7", 0}, record(L"5.7", L"second", 0, 0)}};
    EXPECT_EQ(everything(store), expected);
    store.close();
    EXPECT_EQ(reopened(), expected);
}

TEST_F(Store, SameRecordInsertedAgain_AddsNothingToFile)
{
    store.insert(record(L"5.7", L"entry", 0, 1));
    const auto before = contents(path);
    store.insert(record(L"5.7", L"entry", 0, 1));
    EXPECT_EQ(contents(path), before);
}

TEST_F(Store, RemovedRecord_IsGone_AlsoInANewStore_OtherApplicationStays)
{
    store.insert(record(L"5.7", L"entry", 0, 1));
    store.insert(record(L"5.7", L"note", 1, 1));
    store.remove(L"5.7", 0);
    const Records expected{{{L"5.7", 1}, record(L"5.7", L"note", 1, 1)}};
    EXPECT_EQ(everything(store), expected);
    store.close();
    EXPECT_EQ(reopened(), expected);
}

TEST_F(Store, RemovingWhatIsNotThere_IsNoFailure_AndAddsNothingToFile)
{
    store.insert(record(L"5.7", L"entry", 0, 1));
    const auto before = contents(path);
    store.remove(L"5.8", 0);
    store.remove(L"5.7", 1);
    EXPECT_EQ(contents(path), before);
}

TEST_F(Store, Identifiers_AreComparedExactly)
{
    store.insert(record(L"a.7", L"entry", 0, 1));
    EXPECT_FALSE(store.find(L"A.7", 0));
    EXPECT_FALSE(store.find(L"a.7 ", 0));
}

TEST_F(Store, IdentifiersOf1023Characters_AndUnicode_AndWithNulInside_ComeBackUnchanged)
{
    const std::wstring withNul(L"12\0"
                               L"34\0",
                               6);
    Records expected;
    for (const auto& inserted : {record(std::wstring(1023, L'7'), std::wstring(1023, L'E'), 0, 1),
                                 record(unicodeIdentifier(1023), unicodeIdentifier(1022), 1, 0),
                                 record(L"1.1", withNul, 0, 1), record(withNul, L"entry", 0, 1)}) {
        store.insert(inserted);
        expected.emplace(Key{inserted.idOrvel, inserted.typApplication}, inserted);
    }
    EXPECT_FALSE(store.find(L"12", 0)); // not cut at the NUL
    store.close();
    EXPECT_EQ(reopened(), expected);
}

TEST_F(Store, LongestIdentifier_IsKept_OneCharacterMore_IsRefused)
{
    const auto longest = record(L"1.1", std::wstring(32'767, L'x'), 0, 1);
    store.insert(longest);
    EXPECT_THROW(store.insert(record(L"1.2", std::wstring(32'768, L'x'), 0, 1)), StoreError);
    EXPECT_THROW(store.insert(record(std::wstring(32'768, L'1'), L"x", 0, 1)), StoreError);
    store.close();
    EXPECT_EQ(reopened(), (Records{{{L"1.1", 0}, longest}}));
}

TEST_F(Store, EmptyIdentifier_IsRefused_AndNothingChanges)
{
    EXPECT_THROW(store.insert(record(L"", L"entry", 0, 1)), StoreError);
    EXPECT_THROW(store.insert(record(L"5.7", L"", 0, 1)), StoreError);
    EXPECT_TRUE(everything(store).empty());
    store.close();
    EXPECT_TRUE(reopened().empty());
}

TEST_F(Store, ExtremeNumbers_ComeBackUnchanged)
{
    store.insert(record(L"1.1", L"a", INT32_MIN, INT32_MAX));
    store.close();
    const auto found = store.find(L"1.1", INT32_MIN);
    ASSERT_TRUE(found);
    EXPECT_EQ(found->collection, INT32_MAX);
}

TEST_F(Store, ClosedStore_OpensAgainWithNextOperation)
{
    store.insert(record(L"5.7", L"entry", 0, 1));
    store.close();
    store.close();
    store.insert(record(L"5.8", L"other", 0, 1));
    EXPECT_EQ(everything(store).size(), 2u);
}

TEST_F(Store, Snapshot_StaysAsItWas_WhileRecordsAreRemoved)
{
    for (int number = 0; number < 50; ++number) store.insert(record(L"1." + std::to_wstring(number), L"e", 0, 1));
    const auto snapshot = store.records(1);
    ASSERT_EQ(snapshot.size(), 50u);
    for (const auto& found : snapshot) store.remove(found->idOrvel, found->typApplication);
    EXPECT_TRUE(everything(store).empty());
    EXPECT_EQ(snapshot.back()->idAppli, L"e");
}

TEST_F(Store, FolderMissing_IsMade)
{
    const std::wstring inside = folder.file(L"Hublink");
    {
        IdentifierStore elsewhere(inside + L"\\identifiers.map");
        elsewhere.insert(record(L"5.7", L"entry", 0, 1));
    }
    EXPECT_TRUE(fileExists(inside + L"\\identifiers.map"));
    DeleteFileW((inside + L"\\identifiers.map").c_str());
}

TEST_F(Store, TwoHundredThousandRecords_AreAllFound)
{
    // Written as one block: one flushed insertion each would take minutes.
    convid::Bytes bytes = convid::fileHeader();
    for (int number = 0; number < 200'000; ++number) {
        const auto entry =
            convid::insertEntry(record(L"31250." + std::to_wstring(number), std::wstring(140, L'A'), number % 2, 1));
        bytes.insert(bytes.end(), entry.begin(), entry.end());
    }
    writeContents(path, bytes);
    bytes = {};

    EXPECT_TRUE(store.find(L"31250.199999", 1));
    EXPECT_EQ(store.records(1).size(), 200'000u);
}

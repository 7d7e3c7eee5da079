// A replacement that was left behind: it is never lost where it is the only good copy.
#include "automation/owners.h"
#include "convid/checksum.h"
#include "convid/file_retry.h"
#include "convid/log_rewrite.h"
#include "convid/store_error.h"
#include "store_files.h"

#include <gtest/gtest.h>

using namespace convid_tests;
using convid::IdentifierStore;
using convid::StoreError;
using Bytes = std::vector<std::uint8_t>;

namespace {

constexpr std::size_t versionAt = 8; // in the header

class LeftReplacement : public testing::Test {
protected:
    LeftReplacement()
    {
        IdentifierStore store(path);
        store.insert(record(L"5.7", L"entry", 0, 1));
        ends.push_back(contents(path).size());
        store.insert(record(L"5.8", L"note", 1, 0));
        ends.push_back(contents(path).size());
        records = everything(store);
        store.close();
        whole = contents(path);
        folder.clear();
    }

    Records opened() const
    {
        IdentifierStore store(path, shortTimeout);
        return everything(store);
    }

    using Names = std::vector<std::wstring>;

    ScratchFolder folder;
    const std::wstring path = folder.file(L"map");
    const std::wstring replacement = path + L".new";
    std::vector<std::size_t> ends; // of the entries
    Records records;
    Bytes whole;
};

Bytes ofNewerVersion(Bytes store)
{
    Bytes header = convid::fileHeader();
    header[versionAt] = 9;
    const std::uint32_t sum = convid::crc32(convid::ByteView(header).first(versionAt + 4));
    for (std::size_t byte = 0; byte < 4; ++byte)
        header[versionAt + 4 + byte] = static_cast<std::uint8_t>(sum >> 8 * byte);
    std::copy(header.begin(), header.end(), store.begin());
    return store;
}

HRESULT failureOf(IdentifierStore& store)
{
    try {
        store.find(L"5.7", 0);
    } catch (const StoreError& error) {
        return error.code();
    }
    return S_OK;
}

}

TEST_F(LeftReplacement, Complete_WithoutAStore_BecomesTheStore)
{
    writeContents(replacement, whole);
    EXPECT_EQ(opened(), records);
    EXPECT_EQ(folder.files(), Names{L"map"});
}

TEST_F(LeftReplacement, Complete_WithAStoreThatWasJustBeingMade_BecomesTheStore)
{
    writeContents(path, {});
    writeContents(replacement, whole);
    EXPECT_EQ(opened(), records);
    EXPECT_EQ(folder.files(), Names{L"map"});
}

// The header is written last, so it is missing wherever the writing was cut short.
TEST_F(LeftReplacement, CutShort_WithoutAStore_IsSetAsideWhole)
{
    for (std::size_t size = 0; size <= whole.size() && !HasFailure(); ++size) {
        SCOPED_TRACE("cut at byte " + std::to_string(size));
        folder.clear();
        Bytes cut(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(size));
        std::fill_n(cut.begin(), std::min<std::size_t>(size, convid::headerSize), std::uint8_t{0});
        writeContents(replacement, cut);
        EXPECT_EQ(opened(), Records{});
        EXPECT_EQ(folder.files(), (Names{L"map", L"map.damaged-1"}));
        EXPECT_EQ(contents(path + L".damaged-1"), cut);
    }
}

TEST_F(LeftReplacement, CutWithinAnEntry_WithoutAStore_IsSetAsideWhole)
{
    for (std::size_t size = 0; size < whole.size() && !HasFailure(); ++size) {
        if (size == convid::headerSize || size == ends[0]) continue; // no writer leaves these
        SCOPED_TRACE("cut at byte " + std::to_string(size));
        folder.clear();
        const Bytes cut(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(size));
        writeContents(replacement, cut);
        EXPECT_EQ(opened(), Records{});
        EXPECT_EQ(folder.files(), (Names{L"map", L"map.damaged-1"}));
        EXPECT_EQ(contents(path + L".damaged-1"), cut);
    }
}

TEST_F(LeftReplacement, Damaged_WithoutAStore_IsSetAside_UnderTheNextFreeName)
{
    writeContents(path + L".damaged-1", {1, 2, 3});
    Bytes damaged = whole;
    damaged[convid::headerSize + 10] ^= 1;
    writeContents(replacement, damaged);
    EXPECT_EQ(opened(), Records{});
    EXPECT_EQ(contents(path + L".damaged-1"), (Bytes{1, 2, 3}));
    EXPECT_EQ(contents(path + L".damaged-2"), damaged);
}

TEST_F(LeftReplacement, OfANewerProgram_IsLeftAlone_WithAndWithoutAStore)
{
    const Bytes newer = ofNewerVersion(whole);
    writeContents(replacement, newer);
    IdentifierStore store(path, shortTimeout);
    EXPECT_EQ(failureOf(store), HRESULT_FROM_WIN32(ERROR_UNKNOWN_REVISION));
    EXPECT_EQ(folder.files(), Names{L"map.new"});
    writeContents(path, newer);
    EXPECT_EQ(failureOf(store), HRESULT_FROM_WIN32(ERROR_UNKNOWN_REVISION));
    EXPECT_EQ(contents(replacement), newer);
}

TEST_F(LeftReplacement, BesideADamagedStore_IsSetAside_AndTheStoreIsRepaired)
{
    Bytes damaged = whole;
    damaged[convid::headerSize + 10] ^= 1;
    writeContents(path, damaged);
    writeContents(replacement, whole);
    Records left = records;
    left.erase(Key{L"5.7", 0});
    EXPECT_EQ(opened(), left);
    EXPECT_EQ(contents(path + L".damaged-1"), whole);
    EXPECT_EQ(contents(path + L".damaged-2"), damaged);
    EXPECT_EQ(folder.files(), (Names{L"map", L"map.damaged-1", L"map.damaged-2"}));
}

TEST_F(LeftReplacement, ThatCannotBeMoved_WithoutAStore_IsKept_UntilItCanBe)
{
    writeContents(replacement, whole);
    automation::Handle holder = automation::ownedIfValid(CreateFileW(
        replacement.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE, nullptr, OPEN_EXISTING, 0, nullptr));
    ASSERT_TRUE(holder);
    IdentifierStore store(path, shortTimeout);
    EXPECT_TRUE(FAILED(failureOf(store)));
    EXPECT_EQ(contents(replacement), whole);
    holder.reset();
    EXPECT_EQ(everything(store), records);
}

namespace {

constexpr DWORD longTimeout = 60'000; // milliseconds: the attempts end sooner

// Answers with one code after the other, then with success; tells the outcome
// and how many answers were asked for.
std::pair<DWORD, std::size_t> replacing(std::vector<DWORD> answers, DWORD timeout = longTimeout)
{
    std::size_t asked = 0;
    const DWORD outcome = convid::replaceWithRetries(timeout, [&]() -> DWORD {
        const std::size_t answer = asked++;
        return answer < answers.size() ? answers[answer] : DWORD{ERROR_SUCCESS};
    });
    return {outcome, asked};
}

using Outcome = std::pair<DWORD, std::size_t>;

}

TEST(Replacing, FileInUse_AccessDenied_OrAConnectionLost_IsTriedAgain)
{
    for (const DWORD passing : std::initializer_list<DWORD>{
             ERROR_SHARING_VIOLATION, ERROR_LOCK_VIOLATION, ERROR_ACCESS_DENIED, ERROR_NETNAME_DELETED,
             ERROR_UNEXP_NET_ERR, ERROR_BAD_NETPATH, ERROR_BAD_NET_NAME, ERROR_DEV_NOT_EXIST, ERROR_SEM_TIMEOUT})
        EXPECT_EQ(replacing({passing, passing}), Outcome(ERROR_SUCCESS, 3)) << passing;
}

TEST(Replacing, AnyOtherFailure_IsNotTriedAgain)
{
    for (const DWORD lasting :
         std::initializer_list<DWORD>{ERROR_DISK_FULL, ERROR_FILE_NOT_FOUND, ERROR_WRITE_PROTECT, ERROR_INVALID_NAME})
        EXPECT_EQ(replacing({lasting}), Outcome(lasting, 1)) << lasting;
}

TEST(Replacing, PatienceOver_TheLastFailureIsTold)
{
    EXPECT_EQ(replacing({ERROR_ACCESS_DENIED, ERROR_ACCESS_DENIED}, 0), Outcome(ERROR_ACCESS_DENIED, 1));
}

TEST(Replacing, NothingLeftToReplaceWith_AfterALostAnswer_WasCarriedOut)
{
    EXPECT_EQ(replacing({ERROR_NETNAME_DELETED, ERROR_FILE_NOT_FOUND}), Outcome(ERROR_SUCCESS, 2));
    EXPECT_EQ(replacing({ERROR_ACCESS_DENIED, ERROR_FILE_NOT_FOUND}), Outcome(ERROR_FILE_NOT_FOUND, 2));
}

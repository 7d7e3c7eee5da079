// Stores that cannot be opened or written.
#include "convid/store_error.h"
#include "store_files.h"

#include <gtest/gtest.h>

using namespace convid_tests;
using convid::IdentifierStore;
using convid::StoreError;

namespace {

// Runs `operation` and returns the failure's code and description.
template <class Operation>
std::pair<HRESULT, std::wstring> failureOf(Operation operation)
{
    try {
        operation();
    } catch (const StoreError& error) {
        return {error.code(), error.description()};
    }
    return {S_OK, L""};
}

DWORD WINAPI closeAfterAMoment(void* file)
{
    Sleep(300);
    CloseHandle(file);
    return 0;
}

}

TEST(StoreAccess, SecondOpener_FailsClearly_UntilTheFirstHasClosed)
{
    const ScratchFolder folder;
    IdentifierStore first(folder.file(L"map"));
    IdentifierStore second(folder.file(L"map"), shortTimeout);
    first.insert(record(L"5.7", L"entry", 0, 1));

    const auto [code, description] = failureOf([&] { second.insert(record(L"5.8", L"entry", 0, 1)); });
    EXPECT_EQ(code, HRESULT_FROM_WIN32(ERROR_SHARING_VIOLATION));
    EXPECT_NE(description.find(L"is in use by another program"), std::wstring::npos);
    EXPECT_NE(description.find(folder.file(L"map")), std::wstring::npos);

    first.insert(record(L"5.9", L"entry", 0, 1));
    first.close();
    EXPECT_EQ(everything(second).size(), 2u);
}

TEST(StoreAccess, FileHeldForAMoment_IsWaitedFor)
{
    const ScratchFolder folder;
    const HANDLE holder =
        CreateFileW(folder.file(L"map").c_str(), GENERIC_READ | GENERIC_WRITE, 0, nullptr, CREATE_NEW, 0, nullptr);
    ASSERT_NE(holder, INVALID_HANDLE_VALUE);
    const HANDLE release = CreateThread(nullptr, 0, closeAfterAMoment, holder, 0, nullptr);
    IdentifierStore store(folder.file(L"map"), {.compactionFloor = 1'000, .timeout = 60'000});
    EXPECT_NO_THROW(store.insert(record(L"5.7", L"entry", 0, 1)));
    WaitForSingleObject(release, INFINITE);
    CloseHandle(release);
}

TEST(StoreAccess, OpenStore_CanBeCopiedByAReader)
{
    const ScratchFolder folder;
    IdentifierStore store(folder.file(L"map"));
    store.insert(record(L"5.7", L"entry", 0, 1));
    ASSERT_TRUE(CopyFileW(folder.file(L"map").c_str(), folder.file(L"backup").c_str(), TRUE));
    IdentifierStore backup(folder.file(L"backup"));
    EXPECT_EQ(everything(backup), everything(store));
}

TEST(StoreAccess, FolderInTheStoresPlace_FailsClearly_EachTime)
{
    const ScratchFolder folder;
    CreateDirectoryW(folder.file(L"map").c_str(), nullptr);
    IdentifierStore store(folder.file(L"map"), shortTimeout);
    for (int time = 0; time < 2; ++time) {
        const auto [code, description] = failureOf([&] { store.insert(record(L"5.7", L"entry", 0, 1)); });
        EXPECT_TRUE(FAILED(code));
        EXPECT_NE(description.find(L"cannot be opened"), std::wstring::npos);
    }
    RemoveDirectoryW(folder.file(L"map").c_str());
    EXPECT_NO_THROW(store.insert(record(L"5.7", L"entry", 0, 1)));
    EXPECT_EQ(everything(store).size(), 1u);
}

TEST(StoreAccess, ReadOnlyFile_FailsClearly_AndIsUntouched)
{
    const ScratchFolder folder;
    const std::wstring path = folder.file(L"map");
    IdentifierStore store(path, shortTimeout);
    store.insert(record(L"5.7", L"entry", 0, 1));
    store.close();
    const auto before = contents(path);
    SetFileAttributesW(path.c_str(), FILE_ATTRIBUTE_READONLY);

    EXPECT_EQ(failureOf([&] { store.insert(record(L"5.8", L"entry", 0, 1)); }).first, E_ACCESSDENIED);
    EXPECT_EQ(contents(path), before);
    SetFileAttributesW(path.c_str(), FILE_ATTRIBUTE_NORMAL);
    EXPECT_EQ(everything(store).size(), 1u); // the failed insertion is not remembered
}

TEST(StoreAccess, FolderThatCannotBeMade_FailsClearly)
{
    const ScratchFolder folder;
    writeContents(folder.file(L"Hublink"), {});
    IdentifierStore store(folder.file(L"Hublink") + L"\\identifiers.map", shortTimeout);
    EXPECT_TRUE(FAILED(failureOf([&] { store.find(L"5.7", 0); }).first));
}

#include "automation/owners.h"

#include "support/allocation_count.h"

#include <gtest/gtest.h>

using automation::Handle;

namespace {

bool isOpen(HANDLE handle)
{
    DWORD flags = 0;
    return GetHandleInformation(handle, &flags) != FALSE;
}

}

TEST(Owners, HandleThatIsLetGo_IsClosed)
{
    const HANDLE event = CreateEventW(nullptr, TRUE, FALSE, nullptr);
    {
        const Handle owner(event);
        EXPECT_TRUE(isOpen(event));
    }
    EXPECT_FALSE(isOpen(event));
}

TEST(Owners, HandleThatIsMovedOn_IsClosedOnce_ByItsLastOwner)
{
    const HANDLE event = CreateEventW(nullptr, TRUE, FALSE, nullptr);
    Handle last;
    {
        Handle first(event);
        last = std::move(first);
    }
    EXPECT_TRUE(isOpen(event));
    last.reset();
    EXPECT_FALSE(isOpen(event));
}

TEST(Owners, HandleOfAFileThatCannotBeOpened_IsNone)
{
    EXPECT_FALSE(automation::ownedIfValid(
        CreateFileW(L"C:\\nowhere\\nothing", GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr)));
    WIN32_FIND_DATAW entry;
    EXPECT_FALSE(automation::ownedIfValid<automation::FileSearch>(FindFirstFileW(L"C:\\nowhere\\*", &entry)));
}

TEST(Owners, PseudoHandleOfThisProcess_CountsAsOne)
{
    EXPECT_TRUE(Handle(GetCurrentProcess()));
}

TEST(Owners, KeyThatIsLetGo_IsClosed)
{
    HKEY key = nullptr;
    ASSERT_EQ(RegOpenKeyExW(HKEY_CURRENT_USER, L"Software", 0, KEY_READ, &key), ERROR_SUCCESS);
    automation::RegistryKey(key).reset();
    EXPECT_NE(RegQueryInfoKeyW(key, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr, nullptr,
                               nullptr, nullptr),
              ERROR_SUCCESS);
}

TEST(Owners, Text_IsReadWholeAndFreed)
{
    using automation::Bstr;
    const auto readOne = [] {
        Bstr text;
        *text.receive() = SysAllocStringLen(L"a\0b", 3);
        return text.text();
    };
    EXPECT_EQ(Bstr().text(), L"");
    EXPECT_EQ(readOne(), std::wstring(L"a\0b", 3));
    for (int warming = 0; warming < 100; ++warming) readOne();
    const long before = support::outstandingAllocations();
    for (int time = 0; time < 100; ++time) readOne();
    EXPECT_EQ(support::outstandingAllocations(), before);
}

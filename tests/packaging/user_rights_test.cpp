// Wine keeps no list of rights with a file, so the list itself is looked at.
#include "setup/user_rights.h"
#include "support/scratch_folder.h"

#include <gtest/gtest.h>

namespace {

struct AccessEntry {
    ACCESS_MASK rights = 0;
    bool ofUsers = false;
    bool ofSystem = false;
};

std::vector<AccessEntry> entriesOf(ACL* list)
{
    std::vector<AccessEntry> entries;
    for (DWORD index = 0; index < list->AceCount; ++index) {
        void* found = nullptr;
        if (!GetAce(list, index, &found)) continue;
        auto* const entry = static_cast<ACCESS_ALLOWED_ACE*>(found);
        entries.push_back({entry->Mask, IsWellKnownSid(&entry->SidStart, WinBuiltinUsersSid) != FALSE,
                           IsWellKnownSid(&entry->SidStart, WinLocalSystemSid) != FALSE});
    }
    return entries;
}

}

TEST(UserRights, UsersOfTheComputer_MayReadAndChange_WhatOthersMayStays)
{
    BYTE system[SECURITY_MAX_SID_SIZE];
    DWORD size = sizeof system;
    ASSERT_TRUE(CreateWellKnownSid(WinLocalSystemSid, nullptr, system, &size));
    alignas(ACL) BYTE list[256];
    ASSERT_TRUE(InitializeAcl(reinterpret_cast<ACL*>(list), sizeof list, ACL_REVISION));
    ASSERT_TRUE(AddAccessAllowedAce(reinterpret_cast<ACL*>(list), ACL_REVISION, FILE_ALL_ACCESS, system));
    const auto extended = hublink::setup::withChangeForUsers(reinterpret_cast<ACL*>(list));
    ASSERT_TRUE(extended);
    ACCESS_MASK ofUsers = 0, ofSystem = 0;
    for (const AccessEntry& entry : entriesOf(extended.get())) {
        if (entry.ofUsers) ofUsers |= entry.rights;
        if (entry.ofSystem) ofSystem |= entry.rights;
    }
    EXPECT_EQ(ofUsers, static_cast<ACCESS_MASK>(FILE_GENERIC_READ | FILE_GENERIC_WRITE | DELETE));
    EXPECT_EQ(ofSystem, static_cast<ACCESS_MASK>(FILE_ALL_ACCESS));
}

TEST(UserRights, FileThatIsNotThere_IsTold)
{
    EXPECT_THROW(hublink::setup::letUsersChange(L"C:\\no such file.ini"), std::runtime_error);
}

#include "automation/call_permission.h"

#include "automation/owners.h"

#include <gtest/gtest.h>

#include <vector>

namespace {

// COM's rights to call, from here and from elsewhere.
constexpr DWORD mayCall = 3;

std::vector<BYTE> userOfThisProcess()
{
    HANDLE opened = nullptr;
    OpenProcessToken(GetCurrentProcess(), TOKEN_QUERY, &opened);
    const automation::Handle token(opened);
    std::vector<BYTE> user(1024);
    DWORD size = 0;
    GetTokenInformation(token.get(), TokenUser, user.data(), static_cast<DWORD>(user.size()), &size);
    return user;
}

// What the list gives to that user or group; nothing when it does not name it.
DWORD rightsOf(PSID who, ACL* list)
{
    DWORD rights = 0;
    for (DWORD index = 0; index < list->AceCount; ++index) {
        ACCESS_ALLOWED_ACE* entry = nullptr;
        GetAce(list, index, reinterpret_cast<void**>(&entry));
        if (entry->Header.AceType == ACCESS_ALLOWED_ACE_TYPE && EqualSid(&entry->SidStart, who)) rights |= entry->Mask;
    }
    return rights;
}

}

TEST(CallPermission, OwnUserAndTheSystem_MayCall_AndNobodyElse)
{
    automation::OwnUserAndSystemDescriptor callers;
    ASSERT_TRUE(IsValidSecurityDescriptor(callers.descriptor()));
    ACL* list = nullptr;
    BOOL present = FALSE;
    BOOL byDefault = FALSE;
    ASSERT_TRUE(GetSecurityDescriptorDacl(callers.descriptor(), &present, &list, &byDefault));
    ASSERT_TRUE(present && list);
    BYTE system[SECURITY_MAX_SID_SIZE];
    DWORD size = sizeof system;
    ASSERT_TRUE(CreateWellKnownSid(WinLocalSystemSid, nullptr, system, &size));
    const std::vector<BYTE> user = userOfThisProcess();
    EXPECT_EQ(rightsOf(reinterpret_cast<const TOKEN_USER*>(user.data())->User.Sid, list), mayCall);
    EXPECT_EQ(rightsOf(system, list), mayCall);
    EXPECT_EQ(list->AceCount, 2);
}

TEST(CallPermission, Descriptor_HasTheOwnerAndTheGroupThatComAsksFor)
{
    automation::OwnUserAndSystemDescriptor callers;
    PSID owner = nullptr;
    PSID group = nullptr;
    BOOL byDefault = FALSE;
    EXPECT_TRUE(GetSecurityDescriptorOwner(callers.descriptor(), &owner, &byDefault));
    EXPECT_TRUE(GetSecurityDescriptorGroup(callers.descriptor(), &group, &byDefault));
    EXPECT_TRUE(owner && IsValidSid(owner));
    EXPECT_TRUE(group && IsValidSid(group));
}

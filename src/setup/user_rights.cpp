#include "setup/user_rights.h"

#include <aclapi.h>

#include <stdexcept>
#include <vector>

namespace hublink::setup {

namespace {

// Both generic rights hold the standard ones. NOLINTNEXTLINE(misc-redundant-expression)
constexpr DWORD change = FILE_GENERIC_READ | FILE_GENERIC_WRITE | DELETE;

void require(DWORD result, const char* function)
{
    if (result != ERROR_SUCCESS) throw std::runtime_error(std::string(function) + ": error " + std::to_string(result));
}

std::vector<BYTE> usersOfTheComputer()
{
    std::vector<BYTE> identifier(SECURITY_MAX_SID_SIZE);
    auto size = static_cast<DWORD>(identifier.size());
    if (!CreateWellKnownSid(WinBuiltinUsersSid, nullptr, identifier.data(), &size))
        require(GetLastError(), "CreateWellKnownSid");
    return identifier;
}

}

automation::LocalMemory<ACL> withChangeForUsers(ACL* list)
{
    std::vector<BYTE> users = usersOfTheComputer();
    EXPLICIT_ACCESSW access{};
    access.grfAccessPermissions = change;
    access.grfAccessMode = GRANT_ACCESS;
    access.grfInheritance = NO_INHERITANCE;
    access.Trustee.TrusteeForm = TRUSTEE_IS_SID;
    access.Trustee.ptstrName = reinterpret_cast<wchar_t*>(users.data());
    ACL* extended = nullptr;
    require(SetEntriesInAclW(1, &access, list, &extended), "SetEntriesInAcl");
    return automation::LocalMemory<ACL>(extended);
}

void letUsersChange(const std::wstring& file)
{
    std::wstring name = file; // the functions ask for one that they might write to
    ACL* list = nullptr;
    PSECURITY_DESCRIPTOR descriptor = nullptr;
    require(GetNamedSecurityInfoW(name.data(), SE_FILE_OBJECT, DACL_SECURITY_INFORMATION, nullptr, nullptr, &list,
                                  nullptr, &descriptor),
            "GetNamedSecurityInfo");
    const automation::LocalMemory<void> owned(descriptor);
    const auto extended = withChangeForUsers(list);
    require(SetNamedSecurityInfoW(name.data(), SE_FILE_OBJECT, DACL_SECURITY_INFORMATION, nullptr, nullptr,
                                  extended.get(), nullptr),
            "SetNamedSecurityInfo");
}

}

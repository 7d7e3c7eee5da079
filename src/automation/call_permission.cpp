#include "automation/call_permission.h"

#include "automation/error.h"
#include "automation/owners.h"

#include <objbase.h>
#include <objidl.h>

namespace automation {

namespace {

constexpr DWORD mayCall = 3; // COM_RIGHTS_EXECUTE and COM_RIGHTS_EXECUTE_LOCAL

void checkWindows(BOOL succeeded, const wchar_t* function)
{
    if (!succeeded) throw AutomationError(function, HRESULT_FROM_WIN32(GetLastError()));
}

std::vector<BYTE> processUser()
{
    HANDLE opened = nullptr;
    checkWindows(OpenProcessToken(GetCurrentProcess(), TOKEN_QUERY, &opened), L"OpenProcessToken");
    const Handle token(opened);
    DWORD size = 0;
    GetTokenInformation(token.get(), TokenUser, nullptr, 0, &size);
    std::vector<BYTE> user(size);
    checkWindows(GetTokenInformation(token.get(), TokenUser, user.data(), size, &size), L"GetTokenInformation");
    return user;
}

std::vector<BYTE> systemIdentifier()
{
    std::vector<BYTE> identifier(SECURITY_MAX_SID_SIZE);
    auto size = static_cast<DWORD>(identifier.size());
    checkWindows(CreateWellKnownSid(WinLocalSystemSid, nullptr, identifier.data(), &size), L"CreateWellKnownSid");
    return identifier;
}

}

OwnUserAndSystemDescriptor::OwnUserAndSystemDescriptor() : user_(processUser()), system_(systemIdentifier())
{
    const PSID user = reinterpret_cast<const TOKEN_USER*>(user_.data())->User.Sid;
    list_.resize(sizeof(ACL) + 2 * sizeof(ACCESS_ALLOWED_ACE) + GetLengthSid(user) + GetLengthSid(system_.data()));
    auto* const list = reinterpret_cast<ACL*>(list_.data());
    checkWindows(InitializeAcl(list, static_cast<DWORD>(list_.size()), ACL_REVISION), L"InitializeAcl");
    for (const PSID each : {user, static_cast<PSID>(system_.data())})
        checkWindows(AddAccessAllowedAce(list, ACL_REVISION, mayCall, each), L"AddAccessAllowedAce");
    // COM wants an owner and a group, whoever they are.
    checkWindows(InitializeSecurityDescriptor(&descriptor_, SECURITY_DESCRIPTOR_REVISION) &&
                     SetSecurityDescriptorOwner(&descriptor_, user, FALSE) &&
                     SetSecurityDescriptorGroup(&descriptor_, user, FALSE) &&
                     SetSecurityDescriptorDacl(&descriptor_, TRUE, list, FALSE),
                 L"SetSecurityDescriptor");
}

void permitCallsOfOwnUserOnly(StartsServers startsServers)
try {
    OwnUserAndSystemDescriptor callers;
    // "No activation as activator" would refuse every creation that has to start
    // its server (vendor's reference of EOLE_AUTHENTICATION_CAPABILITIES).
    const DWORD capabilities =
        EOAC_NO_CUSTOM_MARSHAL | (startsServers == StartsServers::no ? EOAC_DISABLE_AAA : EOAC_NONE);
    check(CoInitializeSecurity(callers.descriptor(), -1, nullptr, nullptr, RPC_C_AUTHN_LEVEL_CONNECT,
                               RPC_C_IMP_LEVEL_IDENTIFY, nullptr, capabilities, nullptr),
          L"CoInitializeSecurity");
} catch (const AutomationError& error) {
    OutputDebugStringW((error.member() + L" failed\n").c_str());
}

}

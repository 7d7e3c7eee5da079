// Who may call into this process by COM.
#pragma once

#include <windows.h>

#include <vector>

namespace automation {

// The security descriptor of those who may call: the user that the process runs
// for, and the system. Throws AutomationError when the user cannot be determined.
class OwnUserAndSystemDescriptor {
public:
    OwnUserAndSystemDescriptor();
    OwnUserAndSystemDescriptor(const OwnUserAndSystemDescriptor&) = delete;
    OwnUserAndSystemDescriptor& operator=(const OwnUserAndSystemDescriptor&) = delete;

    PSECURITY_DESCRIPTOR descriptor() noexcept { return &descriptor_; }

private:
    std::vector<BYTE> user_; // TOKEN_USER
    std::vector<BYTE> system_;
    std::vector<BYTE> list_;
    SECURITY_DESCRIPTOR descriptor_;
};

enum class StartsServers { no, yes };

// For the whole process, once, after COM's initialisation and before the first
// object: only those may call in, and no object that arrives brings marshalling
// code of its own along. A process that says so starts no servers in its own
// name either. Where Windows refuses this, its own default stays, without an error.
void permitCallsOfOwnUserOnly(StartsServers startsServers);

}

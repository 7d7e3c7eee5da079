#include "common/installation.h"

#include "common/registry.h"

namespace hublink {

void readInstallation(Configuration& configuration)
{
    configuration.szPathPavex = RegGetString(HKEY_LOCAL_MACHINE, softphoneKey, L"Path");
    configuration.szServer = RegGetString(HKEY_CURRENT_USER, userKey, L"HostZRB");
    configuration.szUserName = RegGetString(HKEY_CURRENT_USER, userKey, L"Man");
}

std::wstring connectorFolder(const Configuration& configuration)
{
    return configuration.szPathPavex + L"\\Connector";
}

}

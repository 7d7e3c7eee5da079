#include "outlook/settings.h"

#include "common/configuration.h"
#include "common/error_trap.h"
#include "common/registry.h"
#include "outlook/settings_reading.h"

#include <tuple>

namespace hublink {

namespace {

bool softphoneIsInstalled(const OutlookSession& session)
{
    const std::wstring& folder = session.host.configuration().szPathPavex;
    return !folder.empty() && folder != registryNoText;
}

void registerExtension(const OutlookSession& session)
{
    // Without the softphone's folder the ini file lies in a place that anybody
    // may write to, and Exchange's client would load what it names.
    if (softphoneIsInstalled(session))
        RegSetString(HKEY_LOCAL_MACHINE, extensionsKey, session.szDllExtensionName, session.szRegisteDllExtension);
}

// For the result alone: InitOutlook, which asks for the reading, opens the session whatever it says.
auto comparedSettings(const OutlookConfiguration& configuration)
{
    return std::tuple(configuration.szCallBackMailSyntaxe, configuration.szDllExtensionName,
                      configuration.szRegisteDllExtension);
}

}

bool ReadOutlookIni(OutlookSession& session)
{
    bool isUnchanged = false;
    trapErrors([&] {
        const auto before = comparedSettings(session);
        const IniFile ini(session.host.configuration().szFileConnectorIni);
        if (readOutlookSettings(ini, session.host.programFolder(), session) == ExtensionUse::registered)
            registerExtension(session);
        isUnchanged = comparedSettings(session) == before;
        if (!isUnchanged) session.bOutlookInit = false;
    });
    return isUnchanged;
}

}

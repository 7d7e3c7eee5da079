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

auto watchedSettings(const OutlookConfiguration& configuration)
{
    return std::tuple(configuration.szCallBackMailSyntaxe, configuration.szDllExtensionName,
                      configuration.szRegisteDllExtension);
}

}

bool ReadOutlookIni(OutlookSession& session)
{
    bool unchanged = false;
    trapErrors([&] {
        const auto before = watchedSettings(session);
        const IniFile ini(session.host.configuration().szFileConnectorIni);
        if (readOutlookSettings(ini, session.host.programFolder(), session) == ExtensionUse::registered)
            registerExtension(session);
        unchanged = watchedSettings(session) == before;
        if (!unchanged) session.bOutlookInit = false;
    });
    return unchanged;
}

}

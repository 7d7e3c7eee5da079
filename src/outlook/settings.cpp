#include "outlook/settings.h"

#include "automation/conversion.h"
#include "common/configuration.h"
#include "common/error_trap.h"
#include "common/ini_file.h"
#include "common/registry.h"
#include "common/text.h"

#include <tuple>

namespace hublink {

namespace {

constexpr const char* section = "outlook";
constexpr const wchar_t* extensionsKey = L"SOFTWARE\\Microsoft\\Exchange\\Client\\Extensions";

bool softphoneIsInstalled(const OutlookSession& session)
{
    const std::wstring& folder = session.host.configuration().szPathPavex;
    return !folder.empty() && folder != registryNoText;
}

void readExtension(OutlookSession& session, const IniFile& ini)
{
    const std::wstring library = ini.read(section, "DllExtension", "");
    session.szDllExtensionName = ini.read(section, "DllExtensionName", "");
    std::wstring folder = ini.read(section, "PathDllExtension", "");
    if (folder.empty()) folder = session.host.programFolder();
    std::wstring value = ini.read(section, "RegisteDllExtension", "");
    value = replaceAll(std::move(value), L"<PathDllExtension>", folder);
    session.szRegisteDllExtension = replaceAll(std::move(value), L"<DllExtension>", library);
    // Without the softphone's folder the ini file lies in a place that anybody
    // may write to, and Exchange's client would load what it names.
    if (softphoneIsInstalled(session))
        RegSetString(HKEY_LOCAL_MACHINE, extensionsKey, session.szDllExtensionName, session.szRegisteDllExtension);
}

auto watchedSettings(const OutlookSession& session)
{
    return std::tuple(session.szCallBackMailSyntaxe, session.szDllExtensionName, session.szRegisteDllExtension);
}

}

bool ReadOutlookIni(OutlookSession& session)
{
    bool unchanged = false;
    trapErrors([&] {
        const auto before = watchedSettings(session);
        const IniFile ini(session.host.configuration().szFileConnectorIni);
        session.szCallBackMailSyntaxe = ini.read(section, "CallBackMailSyntaxe", "");
        session.bReplacePhoneNumber = ini.readSwitch(section, "ReplacePhoneNumber", "true");
        session.bQuitOutlook = ini.readSwitch(section, "quitoutlook", "false");
        session.nLanguage = automation::int16FromText(ini.read(section, "language", "0"));
        if (ini.readSwitch(section, "Extension", "")) readExtension(session, ini);
        unchanged = watchedSettings(session) == before;
        if (!unchanged) session.bOutlookInit = false;
    });
    return unchanged;
}

}

#include "outlook/settings_reading.h"

#include "automation/conversion.h"
#include "common/text.h"

namespace hublink {

namespace {

constexpr const char* section = "outlook";

void readExtension(const IniFile& ini, const std::wstring& programFolder, OutlookConfiguration& configuration)
{
    const std::wstring library = ini.read(section, "DllExtension", "");
    configuration.szDllExtensionName = ini.read(section, "DllExtensionName", "");
    std::wstring folder = ini.read(section, "PathDllExtension", "");
    if (folder.empty()) folder = programFolder;
    std::wstring value = ini.read(section, "RegisteDllExtension", "");
    value = replaceAll(std::move(value), L"<PathDllExtension>", folder);
    configuration.szRegisteDllExtension = replaceAll(std::move(value), L"<DllExtension>", library);
}

}

ExtensionUse readOutlookSettings(const IniFile& ini, const std::wstring& programFolder,
                                 OutlookConfiguration& configuration)
{
    configuration.szCallBackMailSyntaxe = ini.read(section, "CallBackMailSyntaxe", "");
    configuration.bReplacePhoneNumber = ini.readSwitch(section, "ReplacePhoneNumber", "true");
    configuration.bQuitOutlook = ini.readSwitch(section, "quitoutlook", "false");
    configuration.nLanguage = automation::int16FromText(ini.read(section, "language", "0"));
    if (!ini.readSwitch(section, "Extension", "")) return ExtensionUse::none;
    readExtension(ini, programFolder, configuration);
    return ExtensionUse::registered;
}

}

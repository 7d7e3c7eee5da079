#include "outlook/settings_reading.h"

#include "automation/conversion.h"
#include "common/settings_table.h"
#include "common/text.h"

namespace hublink {

namespace {

consteval const Setting& outlook(std::string_view key)
{
    return setting("outlook", key);
}

void readExtension(const IniFile& ini, const std::wstring& programFolder, OutlookConfiguration& configuration)
{
    const std::wstring library = ini.read(outlook("DllExtension"));
    configuration.szDllExtensionName = ini.read(outlook("DllExtensionName"));
    std::wstring folder = ini.read(outlook("PathDllExtension"));
    if (folder.empty()) folder = programFolder;
    std::wstring value = ini.read(outlook("RegisteDllExtension"));
    value = replaceAll(std::move(value), L"<PathDllExtension>", folder);
    configuration.szRegisteDllExtension = replaceAll(std::move(value), L"<DllExtension>", library);
}

}

ExtensionUse readOutlookSettings(const IniFile& ini, const std::wstring& programFolder,
                                 OutlookConfiguration& configuration)
{
    configuration.szCallBackMailSyntaxe = ini.read(outlook("CallBackMailSyntaxe"));
    configuration.bReplacePhoneNumber = ini.readSwitch(outlook("ReplacePhoneNumber"));
    configuration.bQuitOutlook = ini.readSwitch(outlook("quitoutlook"));
    configuration.nLanguage = automation::int16FromText(ini.read(outlook("language")));
    if (!ini.readSwitch(outlook("Extension"))) return ExtensionUse::none;
    readExtension(ini, programFolder, configuration);
    return ExtensionUse::registered;
}

}

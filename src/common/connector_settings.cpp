#include "common/connector_settings.h"

#include "automation/conversion.h"
#include "common/settings_table.h"
#include "common/text.h"

#include <windows.h>

namespace hublink {

namespace {

consteval const Setting& application(std::string_view key)
{
    return setting("Application", key);
}

consteval const Setting& feature(std::string_view key)
{
    return setting("AllApplication", key);
}

constexpr Setting kill = application("kill");

std::int16_t number(const IniFile& ini, const Setting& setting)
{
    return automation::int16FromText(ini.read(setting));
}

void chooseGroupwares(Configuration& configuration, const std::wstring& list)
{
    configuration.bgWithLotus = false;
    configuration.bgWithOutlook = false;
    for (const std::wstring& name : split(list, L',')) {
        if (name == L"LOTUS") configuration.bgWithLotus = true;
        if (name == L"OUTLOOK") configuration.bgWithOutlook = true;
    }
}

void readGroupwares(const IniFile& ini, Configuration& configuration)
{
    chooseGroupwares(configuration, ini.read(application("type")));
    const std::wstring replacement = ini.read(application("type1"));
    if (!replacement.empty()) chooseGroupwares(configuration, replacement);
}

void readFeatures(const IniFile& ini, Configuration& configuration)
{
    configuration.bgWithPopUp = ini.readSwitch(feature("PopUp"));
    configuration.bgSetNewContact = ini.readSwitch(feature("NewContact"));
    configuration.bgWithHisto = ini.readSwitch(feature("Histo"));
    configuration.bgWithRepertory = ini.readSwitch(feature("Repertory"));
    configuration.bgWithCallBackMail = ini.readSwitch(feature("CallBackMail"));
}

}

void readConnectorSettings(const IniFile& ini, Configuration& configuration)
{
    configuration.Trace = ini.readSwitch(application("trace"));
    readGroupwares(ini, configuration);
    if (!usesGroupware(configuration)) return;
    configuration.tempo = number(ini, application("tempo"));
    configuration.tempo1 = number(ini, application("tempo1"));
    configuration.gnb_echec = number(ini, application("TryCnxNumber")) != 0 ? VARIANT_TRUE : VARIANT_FALSE;
    readFeatures(ini, configuration);
}

bool usesGroupware(const Configuration& configuration)
{
    return configuration.bgWithLotus || configuration.bgWithOutlook;
}

bool isStopRequested(const IniFile& ini)
{
    return ini.readSwitch(kill);
}

bool isStopRequestReadable(const IniFile& ini)
{
    return !ini.read(kill.section, kill.key, "").empty();
}

bool requestStop(const IniFile& ini)
{
    return ini.write(kill, "true");
}

bool clearStopRequest(const IniFile& ini)
{
    return ini.write(kill, "false");
}

}

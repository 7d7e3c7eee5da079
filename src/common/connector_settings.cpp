#include "common/connector_settings.h"

#include "automation/conversion.h"
#include "common/text.h"

#include <windows.h>

namespace hublink {

namespace {

constexpr const char* application = "Application";
constexpr const char* features = "AllApplication";
constexpr const char* kill = "kill";

std::int16_t number(const IniFile& ini, const char* key, const char* fallback)
{
    return automation::int16FromText(ini.read(application, key, fallback));
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
    chooseGroupwares(configuration, ini.read(application, "type", ""));
    const std::wstring replacement = ini.read(application, "type1", "");
    if (!replacement.empty()) chooseGroupwares(configuration, replacement);
}

void readFeatures(const IniFile& ini, Configuration& configuration)
{
    configuration.bgWithPopUp = ini.readSwitch(features, "PopUp", "");
    configuration.bgSetNewContact = ini.readSwitch(features, "NewContact", "");
    configuration.bgWithHisto = ini.readSwitch(features, "Histo", "");
    configuration.bgWithRepertory = ini.readSwitch(features, "Repertory", "");
    configuration.bgWithCallBackMail = ini.readSwitch(features, "CallBackMail", "");
}

}

void readConnectorSettings(const IniFile& ini, Configuration& configuration)
{
    configuration.Trace = ini.readSwitch(application, "trace", "false");
    readGroupwares(ini, configuration);
    if (!namesGroupware(configuration)) return;
    configuration.tempo = number(ini, "tempo", "200");
    configuration.tempo1 = number(ini, "tempo1", "20");
    configuration.gnb_echec = number(ini, "TryCnxNumber", "10") != 0 ? VARIANT_TRUE : VARIANT_FALSE;
    readFeatures(ini, configuration);
}

bool namesGroupware(const Configuration& configuration)
{
    return configuration.bgWithLotus || configuration.bgWithOutlook;
}

bool asksForStop(const IniFile& ini)
{
    return ini.readSwitch(application, kill, "false");
}

bool tellsWhetherToStop(const IniFile& ini)
{
    return !ini.read(application, kill, "").empty();
}

bool askForStop(const IniFile& ini)
{
    return ini.write(application, kill, "true");
}

bool takeStopRequestBack(const IniFile& ini)
{
    return ini.write(application, kill, "false");
}

}

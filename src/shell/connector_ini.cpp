#include "automation/conversion.h"
#include "common/error_trap.h"
#include "common/text.h"
#include "shell/file_time.h"
#include "shell/hublink.h"

#include <tuple>

namespace hublink {

namespace {

constexpr const char* application = "Application";
constexpr const char* features = "AllApplication";

// The switches whose change the reader reports; "Histo" is not among them.
auto comparedSwitches(const Configuration& configuration)
{
    return std::tuple(configuration.bgWithLotus, configuration.bgWithOutlook, configuration.bgWithPopUp,
                      configuration.bgSetNewContact, configuration.bgWithRepertory, configuration.bgWithCallBackMail);
}

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

}

bool Hublink::ReadConnectorIni()
{
    bool unchanged = false;
    trapErrors([&] {
        const auto before = comparedSwitches(configuration_);
        const IniFile ini(configuration_.szFileConnectorIni);
        if (killIfAsked(ini)) return;
        configuration_.Trace = ini.readSwitch(application, "trace", "false");
        readGroupwares(ini);
        if (!configuration_.bgWithLotus && !configuration_.bgWithOutlook) return gPavexInterface.Kill();
        configuration_.tempo = number(ini, "tempo", "200");
        configuration_.tempo1 = number(ini, "tempo1", "20");
        configuration_.gnb_echec = number(ini, "TryCnxNumber", "10") != 0 ? VARIANT_TRUE : VARIANT_FALSE;
        readFeatures(ini);
        unchanged = comparedSwitches(configuration_) == before;
    });
    return unchanged;
}

// A "kill" that the start-up could not set back was left by an earlier run: it
// counts no more until somebody changes the file.
bool Hublink::isToStop(const IniFile& ini) const
{
    if (!ini.readSwitch(application, "kill", "false")) return false;
    const std::optional<FILETIME> changed = modificationTime(configuration_.szFileConnectorIni);
    return !staleKill_ || !changed || !sameTime(*changed, *staleKill_);
}

bool Hublink::killIfAsked(const IniFile& ini)
{
    if (!isToStop(ini)) return false;
    ini.write(application, "kill", "false");
    gPavexInterface.Kill();
    return true;
}

// For the times at which no tick comes. The rest of a changed file waits for the
// next tick, which is why `gIniFileDate` stays.
void Hublink::obeyKill()
{
    const std::optional<FILETIME> changed = modificationTime(configuration_.szFileConnectorIni);
    if (!changed || (killReadAt_ && sameTime(*changed, *killReadAt_))) return;
    const IniFile ini(configuration_.szFileConnectorIni);
    // Whoever changed the file may hold it for a moment longer.
    if (ini.read(application, "kill", "").empty()) return;
    killReadAt_ = changed;
    killIfAsked(ini);
}

void Hublink::readGroupwares(const IniFile& ini)
{
    chooseGroupwares(configuration_, ini.read(application, "type", ""));
    const std::wstring replacement = ini.read(application, "type1", "");
    if (!replacement.empty()) chooseGroupwares(configuration_, replacement);
}

void Hublink::readFeatures(const IniFile& ini)
{
    configuration_.bgWithPopUp = ini.readSwitch(features, "PopUp", "");
    configuration_.bgSetNewContact = ini.readSwitch(features, "NewContact", "");
    configuration_.bgWithHisto = ini.readSwitch(features, "Histo", "");
    configuration_.bgWithRepertory = ini.readSwitch(features, "Repertory", "");
    configuration_.bgWithCallBackMail = ini.readSwitch(features, "CallBackMail", "");
}

}

#include "common/connector_settings.h"
#include "common/error_trap.h"
#include "shell/file_time.h"
#include "shell/hublink.h"

#include <tuple>

namespace hublink {

namespace {

// The switches whose change the reader reports; "Histo" is not among them.
auto comparedSwitches(const Configuration& configuration)
{
    return std::tuple(configuration.bgWithLotus, configuration.bgWithOutlook, configuration.bgWithPopUp,
                      configuration.bgSetNewContact, configuration.bgWithRepertory, configuration.bgWithCallBackMail);
}

}

bool Hublink::ReadConnectorIni()
{
    bool unchanged = false;
    trapErrors([&] {
        const auto before = comparedSwitches(configuration_);
        const IniFile ini(configuration_.szFileConnectorIni);
        if (killIfAsked(ini)) return;
        readConnectorSettings(ini, configuration_);
        if (!namesGroupware(configuration_)) return gPavexInterface.Kill();
        unchanged = comparedSwitches(configuration_) == before;
    });
    return unchanged;
}

// A "kill" that the start-up could not set back was left by an earlier run: it
// counts no more until somebody changes the file.
bool Hublink::isToStop(const IniFile& ini) const
{
    if (!asksForStop(ini)) return false;
    const std::optional<FILETIME> changed = modificationTime(configuration_.szFileConnectorIni);
    return !staleKill_ || !changed || !sameTime(*changed, *staleKill_);
}

bool Hublink::killIfAsked(const IniFile& ini)
{
    if (!isToStop(ini)) return false;
    takeStopRequestBack(ini);
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
    if (!tellsWhetherToStop(ini)) return;
    killReadAt_ = changed;
    killIfAsked(ini);
}

}

#include "shell/connector_ini_file.h"

#include "automation/error.h"
#include "common/configuration.h"
#include "common/connector_settings.h"
#include "common/error_trap.h"
#include "common/files.h"
#include "common/ini_file.h"
#include "common/installation.h"
#include "shell/file_time.h"
#include "softphone/pavex_interface.h"

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

ConnectorIniFile::ConnectorIniFile(Configuration& configuration, PavexInterface& link)
    : configuration_(configuration), link_(link)
{}

void ConnectorIniFile::install(const std::wstring& programFolder)
{
    const std::wstring folder = connectorFolder(configuration_);
    CopieFileIfNotExist(folder, iniFileName, programFolder);
    configuration_.szFileConnectorIni = folder + L"\\" + iniFileName;
    // The request must not end this run, also where the file cannot be written.
    const IniFile ini(configuration_.szFileConnectorIni);
    clearStopRequest(ini);
    gIniFileDate = lastChange();
    if (isStopRequested(ini)) staleKillTime_ = gIniFileDate;
    killReadTime_ = gIniFileDate;
}

bool ConnectorIniFile::ReadConnectorIni()
{
    bool isUnchanged = false;
    trapErrors([&] {
        const auto before = comparedSwitches(configuration_);
        const IniFile ini(configuration_.szFileConnectorIni);
        if (stopIfRequested(ini)) return;
        readConnectorSettings(ini, configuration_);
        if (!usesGroupware(configuration_)) {
            link_.Kill();
            return;
        }
        isUnchanged = comparedSwitches(configuration_) == before;
    });
    return isUnchanged;
}

bool ConnectorIniFile::detectChange()
{
    const std::optional<FILETIME> changed = lastChange();
    if (!changed) throw automation::AutomationError(L"ini file", HRESULT_FROM_WIN32(ERROR_FILE_NOT_FOUND));
    const bool isAnother = !gIniFileDate || !sameTime(*changed, *gIniFileDate);
    gIniFileDate = changed;
    return isAnother;
}

// The rest of a changed file waits for the next tick, which is why `gIniFileDate` stays.
void ConnectorIniFile::stopIfFileSaysSo()
{
    const std::optional<FILETIME> changed = lastChange();
    if (!changed || (killReadTime_ && sameTime(*changed, *killReadTime_))) return;
    const IniFile ini(configuration_.szFileConnectorIni);
    // Whoever changed the file may hold it for a moment longer.
    if (!isStopRequestReadable(ini)) return;
    killReadTime_ = changed;
    stopIfRequested(ini);
}

std::optional<FILETIME> ConnectorIniFile::lastChange() const
{
    return modificationTime(configuration_.szFileConnectorIni);
}

// A "kill" that the start-up could not set back was left by an earlier run: it
// counts no more until somebody changes the file.
bool ConnectorIniFile::isFreshStopRequest(const IniFile& ini) const
{
    if (!isStopRequested(ini)) return false;
    const std::optional<FILETIME> changed = lastChange();
    return !staleKillTime_ || !changed || !sameTime(*changed, *staleKillTime_);
}

bool ConnectorIniFile::stopIfRequested(const IniFile& ini)
{
    if (!isFreshStopRequest(ini)) return false;
    clearStopRequest(ini);
    link_.Kill();
    return true;
}

}

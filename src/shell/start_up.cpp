#include "automation/conversion.h"
#include "common/connector_settings.h"
#include "common/error_trap.h"
#include "common/files.h"
#include "common/installation.h"
#include "lotus/initialisation.h"
#include "shell/file_time.h"
#include "shell/hublink.h"

#include <shellapi.h>

#include <cmath>
#include <utility>

namespace hublink {

Hublink::Hublink(Desktop desktop, CallWatch::Times callTimes)
    : desktop_(std::move(desktop)), dictionary_(desktop_.programFolder), window_(*this),
      outlook_(*this, groupware_, dictionary_), lotus_(*this, groupware_, dictionary_),
      softphone_(*this, groupware_, outlook_, lotus_), gPavexInterface(softphone_), trayIconData_(),
      callWatch_(callTimes)
{}

Hublink::~Hublink()
{
    if (trayIconData_.cbSize) desktop_.notifyShell(NIM_DELETE, trayIconData_);
}

void Hublink::initProcessHandle()
{
    isRunning(L"pavex.exe", hPavexProcess);
    bProcessWatchReady = true;
}

void Hublink::Form_Load()
{
    trapErrors([&] {
        hPavexProcess = nullptr;
        hOutlookProcess = nullptr;
        hNotesProcess = nullptr;
        groupware_.nbInitFailure = 0;
        requireLotusInitialisation(lotus_);
        initProcessHandle();
        readInstallation(configuration_);
        if (!configuration_.szPathPavex.empty()) {
            const std::wstring today = automation::textFromDate(std::floor(now()));
            configuration_.szPathLogFile = configuration_.szPathPavex + L"\\ConnectorId\\log\\log" + today + L".log";
        }
        AddTrayIcon();
        watchCalls();
        const std::wstring folder = connectorFolder(configuration_);
        CopieFileIfNotExist(folder, iniFileName, desktop_.programFolder);
        configuration_.szFileConnectorIni = folder + L"\\" + iniFileName;
        // A stop request that an earlier run left behind must not end this one,
        // also where the file cannot be written.
        const IniFile ini(configuration_.szFileConnectorIni);
        takeStopRequestBack(ini);
        gIniFileDate = modificationTime(configuration_.szFileConnectorIni);
        if (asksForStop(ini)) staleKill_ = gIniFileDate;
        killReadAt_ = gIniFileDate;
        ReadConnectorIni();
        gPavexInterface.Class_Initialize();
    });
}

}

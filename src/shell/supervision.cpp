#include "shell/supervision.h"

#include "common/configuration.h"
#include "common/error_trap.h"
#include "common/program_files.h"
#include "common/scoped_flag.h"
#include "lotus/initialisation.h"
#include "outlook/initialisation.h"
#include "shell/connector_ini_file.h"
#include "shell/notification_icon.h"
#include "shell/shutdown.h"
#include "softphone/pavex_interface.h"

namespace hublink {

Supervision::Supervision(SoftphoneSession& session, PavexInterface& link, ConnectorIniFile& ini, NotificationIcon& icon,
                         Shutdown& shutdown)
    : session_(session), link_(link), ini_(ini), icon_(icon), shutdown_(shutdown)
{}

void Supervision::initProcessHandle()
{
    isRunning(softphoneProgram, hPavexProcess);
    bProcessWatchReady = true;
}

bool Supervision::isRunning(const wchar_t* fileName, HANDLE& handle)
{
    DWORD processId = 0;
    handle = nullptr;
    processes_.GetProcessHandle(fileName, handle, processId);
    return handle != nullptr;
}

void Supervision::SupervisionPavex_Timer()
{
    if (session_.host.configuration().gStop) {
        shutdown_.StopAll();
        return;
    }
    // A message box of a tick is open: further ticks only watch for a stop,
    // else unattended boxes would pile up.
    if (!bProcessWatchReady || isInTick_) return;
    const ScopedFlag tick(isInTick_);
    trapErrors([&] {
        icon_.retryAdd();
        superviseSoftphone();
        superviseNotes();
        superviseOutlook();
        superviseIniFile();
    });
}

void Supervision::superviseSoftphone()
{
    if (isRunning(softphoneProgram, hPavexProcess)) return;
    session_.host.WriteLog(L"Stop Connector Pavex HS");
    link_.Kill();
}

void Supervision::superviseNotes()
{
    LotusSession& lotus = session_.lotus;
    if (!lotus.LotusReady) return;
    if (!isRunning(notesProgram, hNotesProcess)) {
        handleNotesExit(lotus);
        return;
    }
    if (lotus.LotusMustInit) link_.InitConnector(NewLog::yes);
}

void Supervision::superviseOutlook()
{
    OutlookSession& outlook = session_.outlook;
    if (!session_.host.configuration().bgWithOutlook) return;
    if (!isRunning(outlookProgram, hOutlookProcess)) {
        handleOutlookExit(outlook);
        return;
    }
    if (!outlook.bOutlookInit) link_.InitConnector(NewLog::yes);
}

void Supervision::superviseIniFile()
{
    if (!ini_.detectChange()) return;
    session_.host.WriteLog(L"Reload Ini data");
    ini_.ReadConnectorIni();
    reopenLotus(session_.lotus);
    reopenOutlook(session_.outlook);
}

}

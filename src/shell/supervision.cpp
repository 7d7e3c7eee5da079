#include "automation/error.h"
#include "common/error_trap.h"
#include "common/under_way.h"
#include "lotus/initialisation.h"
#include "outlook/initialisation.h"
#include "shell/file_time.h"
#include "shell/hublink.h"

namespace hublink {

bool Hublink::isRunning(const wchar_t* fileName, HANDLE& handle)
{
    DWORD processId = 0;
    handle = nullptr;
    processes_.GetProcessHandle(fileName, handle, processId);
    return handle != nullptr;
}

void Hublink::SupervisionPavex_Timer()
{
    if (configuration_.gStop) return StopAll();
    // A message box of a tick is open: further ticks only watch for a stop,
    // else unattended boxes would pile up.
    if (!bProcessWatchReady || inTick_) return;
    const UnderWay tick(inTick_);
    trapErrors([&] {
        offerTrayIcon();
        superviseSoftphone();
        superviseNotes();
        superviseOutlook();
        superviseIniFile();
    });
}

void Hublink::superviseSoftphone()
{
    if (isRunning(L"pavex.exe", hPavexProcess)) return;
    WriteLog(L"Stop Connector Pavex HS");
    gPavexInterface.Kill();
}

void Hublink::superviseNotes()
{
    if (!lotus_.LotusReady) return;
    if (!isRunning(L"nlnotes.exe", hNotesProcess)) return notesHasGone(lotus_);
    if (lotus_.LotusMustInit) gPavexInterface.InitConnector(true);
}

void Hublink::superviseOutlook()
{
    if (!configuration_.bgWithOutlook) return;
    if (!isRunning(L"OUTLOOK.exe", hOutlookProcess)) return outlookHasGone(outlook_);
    if (!outlook_.bOutlookInit) gPavexInterface.InitConnector(true);
}

void Hublink::superviseIniFile()
{
    const std::optional<FILETIME> changed = modificationTime(configuration_.szFileConnectorIni);
    if (!changed) throw automation::AutomationError(L"ini file", HRESULT_FROM_WIN32(ERROR_FILE_NOT_FOUND));
    if (gIniFileDate && sameTime(*changed, *gIniFileDate)) return;
    WriteLog(L"Reload Ini data");
    gIniFileDate = changed;
    ReadConnectorIni();
    reopenLotus(lotus_);
    reopenOutlook(outlook_);
}

}

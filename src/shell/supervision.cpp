#include "automation/error.h"
#include "common/error_trap.h"
#include "lotus/session.h"
#include "outlook/session.h"
#include "shell/file_time.h"
#include "shell/hublink.h"

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
    inTick_ = true;
    trapErrors([&] {
        offerTrayIcon();
        superviseSoftphone();
        superviseNotes();
        superviseOutlook();
        superviseIniFile();
    });
    inTick_ = false;
}

void Hublink::superviseSoftphone()
{
    if (isRunning(L"pavex.exe", hPavexProcess)) return;
    WriteLog(L"Stop Connector Pavex HS");
    gPavexInterface.Kill();
}

// `LotusReady` stays on while Notes is away, and brings the session back.
void Hublink::superviseNotes()
{
    if (!lotus_.LotusReady) return;
    const bool running = isRunning(L"nlnotes.exe", hNotesProcess);
    if (!lotus_.LotusMustInit && !running) {
        lotus_.LotusMustInit = true;
        lotus_.NotesSession = automation::Object();
    }
    if (lotus_.LotusMustInit && running) gPavexInterface.InitConnector(true);
}

void Hublink::superviseOutlook()
{
    if (!configuration_.bgWithOutlook) return;
    const bool running = isRunning(L"OUTLOOK.exe", hOutlookProcess);
    if (outlook_.bOutlookInit && !running) {
        outlook_.bOutlookInit = false;
        outlook_.OutlookApp = automation::Object();
    }
    if (!outlook_.bOutlookInit && running) gPavexInterface.InitConnector(true);
}

void Hublink::superviseIniFile()
{
    const std::optional<FILETIME> changed = modificationTime(configuration_.szFileConnectorIni);
    if (!changed) throw automation::AutomationError(L"ini file", HRESULT_FROM_WIN32(ERROR_FILE_NOT_FOUND));
    if (gIniFileDate && sameTime(*changed, *gIniFileDate)) return;
    WriteLog(L"Reload Ini data");
    gIniFileDate = changed;
    ReadConnectorIni();
    lotus_.LotusMustInit = true;
    InitLotus(lotus_, false);
    outlook_.bOutlookInit = false;
    InitOutlook(outlook_);
}

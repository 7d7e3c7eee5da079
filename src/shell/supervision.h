// Keeps the connector in step with the softphone, Notes, Outlook and the ini file.
#pragma once

#include "shell/process_lookup.h"

#include <windows.h>

namespace hublink {

class ConnectorIniFile;
class NotificationIcon;
class PavexInterface;
struct SoftphoneSession;
class Shutdown;

class Supervision {
public:
    Supervision(SoftphoneSession& session, PavexInterface& link, ConnectorIniFile& ini, NotificationIcon& icon,
                Shutdown& shutdown);
    Supervision(const Supervision&) = delete;
    Supervision& operator=(const Supervision&) = delete;

    // Looks for the softphone's process; before it a tick does nothing but stop.
    void initProcessHandle();

    // One tick of the timer.
    void SupervisionPavex_Timer();

private:
    bool isRunning(const wchar_t* fileName, HANDLE& handle);
    void superviseSoftphone();
    void superviseNotes();
    void superviseOutlook();
    void superviseIniFile();

    SoftphoneSession& session_;
    PavexInterface& link_;
    ConnectorIniFile& ini_;
    NotificationIcon& icon_;
    Shutdown& shutdown_;
    ProcessLookup processes_;
    bool bProcessWatchReady = false;
    HANDLE hPavexProcess = nullptr; // these three: set by each look-up, read by nobody
    HANDLE hOutlookProcess = nullptr;
    HANDLE hNotesProcess = nullptr;
    bool isInTick_ = false; // a tick is under way, or waits in a message box of its own
};

}

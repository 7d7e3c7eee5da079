// The hidden main form. It owns the configuration, the supervision, the
// notification icon and the objects of the rooms below, which reach it as
// their Host. It lives from start to end of the process.
//
// Its procedures stand in a file per subject: start_up.cpp, connector_ini.cpp,
// log.cpp, supervision.cpp, current_document_timer.cpp, stop.cpp,
// notification_icon.cpp.
#pragma once

#include "common/dictionary.h"
#include "common/groupware_state.h"
#include "common/host.h"
#include "common/ini_file.h"
#include "lotus/lotus_session.h"
#include "outlook/outlook_session.h"
#include "shell/call_watch.h"
#include "shell/form_window.h"
#include "shell/process_lookup.h"
#include "shell/tray_icon_data.h"
#include "softphone/pavex_interface.h"
#include "softphone/softphone_session.h"

#include <windows.h>

#include <functional>
#include <optional>

namespace hublink {

// What the form asks of the desktop.
struct Desktop {
    std::wstring programFolder;                                                    // no trailing backslash
    std::function<int(const std::wstring& text, UINT flags)> messageBox;           // titled with the program's name
    std::function<void()> endProcess;                                              // at once, nothing else runs
    std::function<bool(DWORD message, TrayIconData& data)> notifyShell = hublink::notifyShell; // the notification area
};

class Hublink final : public Host, private FormEvents {
public:
    explicit Hublink(Desktop desktop, CallWatch::Times callTimes = {});
    ~Hublink() override;
    Hublink(const Hublink&) = delete;
    Hublink& operator=(const Hublink&) = delete;

    // Start-up.
    void Form_Load();
    void initProcessHandle();

    // Reads the general sections of the ini file. True when all compared
    // switches are as before ("Histo" is not compared); false otherwise, and
    // when the reading ended early.
    bool ReadConnectorIni();

    // Supervision: one tick of the timer.
    void SupervisionPavex_Timer();

    // One tick of the timer that follows the user's work in Notes.
    void TimerCallInlotus_Timer();

    // Stopping: the request, and the end of the process.
    void StopConnector() override;
    void StopAll();
    void Form_Terminate() override;
    void letUserStop() override;
    void takeStopMessages() { window_.takeStopMessages(); }

    // Notification icon. X is the notification code, in twips.
    void AddTrayIcon();
    const TrayIconData& trayIcon() const { return trayIconData_; }
    void Form_MouseMove(int button, int shift, double X, double Y) override;

    // The form's services to the rooms below.
    void WriteLog(const std::wstring& szMessage) override;
    const Configuration& configuration() const override { return configuration_; }
    void enableSupervision() override { window_.startSupervision(); }
    void showMessage(const std::wstring& szMessage) override;
    void pause(std::int32_t milliseconds) override;
    DATE now() const override;
    std::wstring programFolder() const override { return desktop_.programFolder; }
    void defer(std::function<void()> work) override { window_.defer(std::move(work)); }

    HWND hWnd() const { return window_.handle(); }
    OutlookSession& outlook() { return outlook_; }
    LotusSession& lotus() { return lotus_; }
    SoftphoneSession& softphone() { return softphone_; }
    PavexInterface& link() { return gPavexInterface; }

private:
    void supervisionTick() override { SupervisionPavex_Timer(); }
    void documentTick() override { TimerCallInlotus_Timer(); }
    void sessionEnds() override;
    void callIsLong() override;
    void superviseSoftphone();
    void superviseNotes();
    void superviseOutlook();
    void superviseIniFile();
    void watchCalls();
    void letGroupwareGo();
    void askWhetherToStop();
    void offerTrayIcon();
    int messageBox(const std::wstring& text, UINT flags);
    bool killIfAsked(const IniFile& ini);
    void obeyKill();
    bool isRunning(const wchar_t* fileName, HANDLE& handle);
    bool isToStop(const IniFile& ini) const;

    const Desktop desktop_;
    Configuration configuration_;
    GroupwareState groupware_;
    Dictionary dictionary_;
    ProcessLookup processes_;
    FormWindow window_; // before what defers work to it, so that it outlives that
    OutlookSession outlook_;
    LotusSession lotus_;
    SoftphoneSession softphone_;
    PavexInterface gPavexInterface;
    std::optional<FILETIME> gIniFileDate; // modification time when last read
    std::optional<FILETIME> staleKill_; // the file's time when its "kill" could not be set back
    std::optional<FILETIME> killReadAt_; // modification time when "kill" was last looked at between ticks
    bool bProcessWatchReady = false;
    HANDLE hPavexProcess = nullptr;
    HANDLE hOutlookProcess = nullptr;
    HANDLE hNotesProcess = nullptr;
    DWORD notesProcessId_ = 0; // found once and kept, also when Notes restarts
    TrayIconData trayIconData_;
    int iconOffers_ = 0; // still to be made to the shell, unless the icon stands
    bool inTick_ = false; // a tick is under way, or waits in a message box of its own
    enum class Question { none, waits, open } question_ = Question::none; // the icon's
    bool mapWasTold_ = false; // StopAll has called the map server, in vain perhaps
    bool ending_ = false; // "The End !!!" is on the screen
    bool sessionEnds_ = false; // that of Windows: nobody is there to answer a box
    CallWatch callWatch_;
};

}

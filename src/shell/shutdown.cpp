#include "shell/shutdown.h"

#include "common/configuration.h"
#include "common/error_trap.h"
#include "common/scoped_flag.h"
#include "common/trace.h"
#include "outlook/initialisation.h"
#include "shell/call_readiness.h"
#include "shell/desktop.h"
#include "shell/form_window.h"
#include "shell/notification_icon.h"
#include "softphone/identifier_map.h"

#include <utility>

namespace hublink {

Shutdown::Shutdown(const Desktop& desktop, Configuration& configuration, FormWindow& window, SoftphoneSession& session,
                   NotificationIcon& icon, CallWatch::Times callTimes)
    : desktop_(desktop), configuration_(configuration), window_(window), session_(session), icon_(icon),
      callWatch_(callTimes)
{}

void Shutdown::watchCalls()
{
    trapErrors([&] {
        const auto end = [this] {
            icon_.remove();
            desktop_.endProcess();
        };
        callWatch_.start([window = window_.handle()] { FormWindow::notifyLongCall(window); }, end);
    });
}

void Shutdown::StopConnector()
{
    configuration_.gStop = true;
    callWatch_.noteStopRequest();
    // The end of a session does not wait for the call that is out, where COM allows.
    if (sessionIsEnding_ && !comRefusesCalls()) releaseGroupware();
    else window_.runOutsideCalls([this] { releaseGroupware(); });
}

void Shutdown::releaseGroupware()
{
    trapErrors([&] {
        quitOutlook(session_.outlook);
        session_.host.WriteLog(L"Stop Connector");
    });
}

void Shutdown::onSessionEnd()
{
    sessionIsEnding_ = true;
    StopConnector();
}

void Shutdown::StopAll()
{
    if (isEnding_) return;
    trapErrors([&] {
        // A map server that is missing or dead ends this try; the next one
        // goes on without it: a program must not be impossible to stop.
        if (!std::exchange(mapServerWasNotified_, true)) closeIdentifierMap(session_);
        const ScopedFlag ending(isEnding_); // the box lets ticks through
        icon_.remove();
        showTrace(session_.host, L"The End !!!");
        desktop_.endProcess();
    });
}

}

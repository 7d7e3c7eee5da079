#include "shell/stopping.h"

#include "common/configuration.h"
#include "common/error_trap.h"
#include "common/under_way.h"
#include "outlook/initialisation.h"
#include "shell/desktop.h"
#include "shell/form_window.h"
#include "shell/notification_icon.h"
#include "softphone/identifier_map.h"

#include <utility>

namespace hublink {

Stopping::Stopping(const Desktop& desktop, Configuration& configuration, FormWindow& window, SoftphoneSession& session,
                   NotificationIcon& icon, CallWatch::Times callTimes)
    : desktop_(desktop), configuration_(configuration), window_(window), session_(session), icon_(icon),
      callWatch_(callTimes)
{}

void Stopping::watchCalls()
{
    trapErrors([&] {
        const auto end = [this] {
            icon_.remove();
            desktop_.endProcess();
        };
        callWatch_.start([window = window_.handle()] { FormWindow::tellOfLongCall(window); }, end);
    });
}

void Stopping::StopConnector()
{
    configuration_.gStop = true;
    callWatch_.stopIsAsked();
    // The end of a session does not wait for the call that is out, where COM allows.
    if (sessionEnds_ && !FormWindow::comRefusesCalls()) letGroupwareGo();
    else window_.outsideCalls([this] { letGroupwareGo(); });
}

void Stopping::letGroupwareGo()
{
    trapErrors([&] {
        quitOutlook(session_.outlook);
        session_.host.WriteLog(L"Stop Connector");
    });
}

void Stopping::sessionEnds()
{
    sessionEnds_ = true;
    StopConnector();
}

void Stopping::StopAll()
{
    if (ending_) return;
    trapErrors([&] {
        // A map server that is missing or dead ends this try; the next one
        // goes on without it: a program must not be impossible to stop.
        if (!std::exchange(mapWasTold_, true)) closeIdentifierMap(session_);
        const UnderWay ending(ending_); // the box lets ticks through
        icon_.remove();
        if (configuration_.Trace) session_.host.showMessage(L"The End !!!");
        desktop_.endProcess();
    });
}

}

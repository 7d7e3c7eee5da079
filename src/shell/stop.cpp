#include "common/error_trap.h"
#include "common/under_way.h"
#include "outlook/initialisation.h"
#include "shell/hublink.h"
#include "softphone/identifier_map.h"

#include <shellapi.h>

#include <utility>

namespace hublink {

void Hublink::watchCalls()
{
    trapErrors([&] {
        const auto end = [this, icon = trayIconData_]() mutable {
            desktop_.notifyShell(NIM_DELETE, icon);
            desktop_.endProcess();
        };
        callWatch_.start([window = hWnd()] { FormWindow::tellOfLongCall(window); }, end);
    });
}

void Hublink::StopConnector()
{
    configuration_.gStop = true;
    callWatch_.stopIsAsked();
    // The end of a session does not wait for the call that is out, where COM allows.
    if (sessionEnds_ && !FormWindow::comRefusesCalls()) letGroupwareGo();
    else window_.outsideCalls([this] { letGroupwareGo(); });
}

void Hublink::letGroupwareGo()
{
    trapErrors([&] {
        quitOutlook(outlook_);
        WriteLog(L"Stop Connector");
    });
}

void Hublink::StopAll()
{
    if (ending_) return;
    trapErrors([&] {
        // A map server that is missing or dead ends this try; the next one
        // goes on without it: a program must not be impossible to stop.
        if (!std::exchange(mapWasTold_, true)) closeIdentifierMap(softphone_);
        const UnderWay ending(ending_); // the box lets ticks through
        desktop_.notifyShell(NIM_DELETE, trayIconData_);
        if (configuration_.Trace) showMessage(L"The End !!!");
        desktop_.endProcess();
    });
}

void Hublink::Form_Terminate()
{
    StopConnector();
}

void Hublink::sessionEnds()
{
    sessionEnds_ = true;
    Form_Terminate();
}

void Hublink::letUserStop()
{
    trapErrors([&] {
        window_.takeStopMessages();
        if (!configuration_.gStop) obeyKill();
    });
}

void Hublink::callIsLong()
{
    if (!callWatch_.callIsLong()) return; // it is over, and another one is out
    letUserStop();
    askWhetherToStop();
}

}

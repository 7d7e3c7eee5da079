#include "common/error_trap.h"
#include "shell/hublink.h"

#include <shellapi.h>

#include <utility>

void Hublink::StopConnector()
{
    trapErrors(L"StopConnector", [&] {
        configuration_.gStop = true;
        if (std::exchange(outlook_.bOutlookInit, false) && outlook_.bQuitOutlook) {
            const automation::Object outlook = outlook_.OutlookApp;
            outlook.call(L"quit");
        }
        WriteLog(L"Stop Connector");
    });
}

void Hublink::StopAll()
{
    if (ending_) return; // "The End !!!" is on the screen
    trapErrors(L"StopAll", [&] {
        // A map server that is missing or dead ends this try; the next one
        // goes on without it: a program must not be impossible to stop.
        if (!std::exchange(mapWasTold_, true)) {
            const automation::Object map = gPavexInterface.hashID;
            map.call(L"StopOrvelConvertId");
        }
        ending_ = true;
        desktop_.notifyShell(NIM_DELETE, trayIconData_);
        if (configuration_.Trace) showMessage(L"The End !!!");
        desktop_.endProcess();
    });
}

void Hublink::Form_Terminate()
{
    StopConnector();
}

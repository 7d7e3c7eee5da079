// The stop of the program: the request, and its end by the next tick or, where a
// call never ends, by a watch over the calls.
#pragma once

#include "shell/call_watch.h"

namespace hublink {

struct Configuration;
struct Desktop;
class FormWindow;
class NotificationIcon;
struct SoftphoneSession;

class Stopping {
public:
    Stopping(const Desktop& desktop, Configuration& configuration, FormWindow& window, SoftphoneSession& session,
             NotificationIcon& icon, CallWatch::Times callTimes);
    Stopping(const Stopping&) = delete;
    Stopping& operator=(const Stopping&) = delete;

    // Starts the watch. Whatever fails, the program goes on without it.
    void watchCalls();

    // The call that is out has been so for long.
    bool callIsLong() const { return callWatch_.callIsLong(); }

    // Asks for a stop. Outlook is let go and the line logged where calls may go out.
    void StopConnector();

    // The Windows session ends: asks for a stop that waits for nothing that need not be.
    void sessionEnds();

    // Nobody is there any more to answer a box.
    bool sessionIsEnding() const { return sessionEnds_; }

    // Ends the process, unless the map server cannot be told: then the next try does.
    void StopAll();

private:
    void letGroupwareGo();

    const Desktop& desktop_;
    Configuration& configuration_;
    FormWindow& window_;
    SoftphoneSession& session_;
    NotificationIcon& icon_;
    bool sessionEnds_ = false;
    bool mapWasTold_ = false; // StopAll has called the map server, in vain perhaps
    bool ending_ = false;     // "The End !!!" is on the screen
    CallWatch callWatch_;
};

}

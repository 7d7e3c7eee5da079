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

class Shutdown {
public:
    Shutdown(const Desktop& desktop, Configuration& configuration, FormWindow& window, SoftphoneSession& session,
             NotificationIcon& icon, CallWatch::Times callTimes);
    Shutdown(const Shutdown&) = delete;
    Shutdown& operator=(const Shutdown&) = delete;

    // Starts the watch. Whatever fails, the program goes on without it.
    void watchCalls();

    // Whether a stop would have to wait for a call to another program, for long already.
    bool isHeldUpByCall() const { return callWatch_.callIsLong(); }

    // Asks for a stop. Outlook is let go and the stop is logged as soon as calls may go out.
    void StopConnector();

    // The Windows session ends: asks for a stop that waits for a call under way only where
    // COM would refuse further calls.
    void onSessionEnd();

    // Whether the Windows session ends: nobody would answer a message box.
    bool sessionIsEnding() const { return sessionIsEnding_; }

    // Notifies the map server and ends the process. Where the map server does not answer,
    // the process goes on; the next call ends it without notifying.
    void StopAll();

private:
    void releaseGroupware();

    const Desktop& desktop_;
    Configuration& configuration_;
    FormWindow& window_;
    SoftphoneSession& session_;
    NotificationIcon& icon_;
    bool sessionIsEnding_ = false;
    bool mapServerWasNotified_ = false; // StopAll has called the map server, with success or without
    bool isEnding_ = false;             // "The End !!!" is on the screen
    CallWatch callWatch_;
};

}

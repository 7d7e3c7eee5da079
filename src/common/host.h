// The one way in which the rooms below the shell reach it. The shell
// implements it over the real desktop; a test does so in a few lines.
#pragma once

#include <windows.h>
#include <oaidl.h>

#include <cstdint>
#include <functional>
#include <string>

namespace hublink {

struct Configuration;

class Host {
public:
    virtual ~Host() = default;

    // The one logging entry: the line goes to the groupware that is connected
    // and, with `Trace` on, to the user in a message box. Never throws.
    virtual void WriteLog(const std::wstring& line) = 0;

    // Asks for a stop; the next supervision tick ends the program. Never throws.
    virtual void StopConnector() = 0;

    // The configuration as it is now. Read it at the moment of use: the
    // reference stays good, the values change.
    virtual const Configuration& configuration() const = 0;

    // Starts the supervision timer.
    virtual void enableSupervision() = 0;

    // A message box with the OK button and the program's name; returns when
    // the user has closed it. Ticks and events go on meanwhile.
    virtual void showMessage(const std::wstring& text) = 0;

    // Blocks the thread; nothing else runs. Zero and less is no pause.
    virtual void pause(std::int32_t milliseconds) = 0;

    // For a long work to call between two records, outside any call: lets the user ask
    // for a stop, which shows in `gStop` then. Never throws.
    virtual void checkForStopRequest() = 0;

    // The current local date and time.
    virtual DATE now() const = 0;

    // The folder that the program lies in, without a trailing backslash.
    virtual std::wstring programFolder() const = 0;

    // Runs `work` from the message loop (a message box's loop included), after
    // what was deferred before it has ended: never inside a call to another program.
    virtual void defer(std::function<void()> work) = 0;
};

}

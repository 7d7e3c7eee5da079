// A partner may never answer, and the thread that called it can only wait. So another
// thread looks once a second at the call under way and keeps the program stoppable. It
// makes no COM call of its own and knows nothing of the form.
#pragma once

#include "automation/milliseconds.h"
#include "automation/owners.h"

#include <windows.h>

#include <atomic>
#include <functional>

namespace hublink {

class CallWatch {
public:
    struct Times {
        automation::Milliseconds longCallAfter = 10'000; // a call that lasts longer is a long one
        automation::Milliseconds interval = 1'000;       // between two looks
    };

    // Watches the calls of the thread that makes it.
    explicit CallWatch(Times times);
    ~CallWatch();
    CallWatch(const CallWatch&) = delete;
    CallWatch& operator=(const CallWatch&) = delete;

    // Starts looking. Both run on the watch's thread and may not throw:
    // `onLongCall` at each look at a long call; `onOverdueStop` instead when a stop has
    // been requested, and the call has gone on for `longCallAfter` since.
    void start(std::function<void()> onLongCall, std::function<void()> onOverdueStop);

    // The program has been asked to stop.
    void noteStopRequest() noexcept;

    // Whether the call under way is a long one; any thread may ask.
    bool callIsLong() const noexcept;

    // One look at the call under way, as the watch's thread takes it at each interval.
    // False when there is nothing left to watch.
    bool look() const;

private:
    static DWORD WINAPI run(void* watch) noexcept;
    bool isLongAgo(const std::atomic<DWORD>& tick) const noexcept;

    const Times times_;
    const std::atomic<DWORD>& callStartTick_;
    std::atomic<DWORD> stopRequestTick_{0}; // a value of GetTickCount; 0 without a request
    std::function<void()> onLongCall_;
    std::function<void()> onOverdueStop_;
    automation::Handle watchEnds_;
    automation::Handle thread_;
};

}

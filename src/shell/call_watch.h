// A partner may never answer, and the thread that called it can only wait. So another
// thread looks once a second at the call under way and keeps the program stoppable. It
// makes no COM call of its own and knows nothing of the form.
#pragma once

#include "automation/owners.h"

#include <windows.h>

#include <atomic>
#include <functional>

namespace hublink {

class CallWatch {
public:
    struct Times {                // milliseconds
        DWORD patience = 10'000;  // a call that lasts longer is a long one
        DWORD interval = 1'000;   // between two looks
    };

    // Watches the calls of the thread that makes it.
    explicit CallWatch(Times times);
    ~CallWatch();
    CallWatch(const CallWatch&) = delete;
    CallWatch& operator=(const CallWatch&) = delete;

    // Starts looking. Both run on the watch's thread and may not throw:
    // `onLongCall` at each look at a long call; `end` instead when a stop
    // has been asked for, and the call has gone on for `patience` since.
    void start(std::function<void()> onLongCall, std::function<void()> end);

    // The program has been asked to stop.
    void stopIsAsked() noexcept;

    // Whether the call under way is a long one.
    bool callIsLong() const noexcept;

private:
    static DWORD WINAPI run(void* watch) noexcept;
    bool longAgo(const std::atomic<DWORD>& moment) const noexcept;
    bool look() const;

    const Times times_;
    const std::atomic<DWORD>& callBegan_;
    std::atomic<DWORD> stopAsked_{0}; // as GetTickCount tells it; 0 when not asked
    std::function<void()> onLongCall_;
    std::function<void()> end_;
    automation::Handle finished_;
    automation::Handle thread_;
};

}

// The time that a call into another process takes: while one is out, nothing
// else of the program may run, and a server that says it is busy is asked
// again for a while.
#pragma once

#include "automation/milliseconds.h"

#include <windows.h>

#include <atomic>

namespace automation {

class OutgoingCall {
public:
    OutgoingCall() noexcept;
    ~OutgoingCall();
    OutgoingCall(const OutgoingCall&) = delete;
    OutgoingCall& operator=(const OutgoingCall&) = delete;

    // Whether this thread is inside a call into another object.
    static bool inProgress() noexcept;

    // When this thread's outermost call began, a value of GetTickCount; 0 while
    // none is out. For another thread to look at, as long as this one lives.
    static const std::atomic<DWORD>& outermostStartTick() noexcept;

    // How long a busy server is asked again, for one call in all.
    static constexpr Milliseconds busyTimeout = 10'000;

    // The pause before the next try, after `waited` has passed:
    // short at first, since most servers are busy only for a moment.
    static Milliseconds retryDelay(Milliseconds waited) noexcept;

    // Runs `attempt` until it returns something else than "busy" or the
    // time limit is reached; returns its last answer.
    template <class Attempt>
    HRESULT retryWhileBusy(Attempt attempt) const
    {
        for (;;) {
            const HRESULT result = attempt();
            if (!isBusy(result) || !pauseBeforeRetry()) return result;
        }
    }

private:
    static bool isBusy(HRESULT result) noexcept;
    bool pauseBeforeRetry() const noexcept;

    DWORD startTick_;
};

}

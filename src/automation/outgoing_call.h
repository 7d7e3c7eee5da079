// The time that a call into another process takes: while one is out, nothing
// else of the program may run, and a server that says it is busy is asked
// again for a while.
#pragma once

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

    // When this thread's outermost call began, as GetTickCount tells it; 0 while
    // none is out. For another thread to look at, as long as this one lives.
    static const std::atomic<DWORD>& beginOfOutermost() noexcept;

    // How long a busy server is asked again, in milliseconds, for one call in all.
    static constexpr DWORD patience = 10'000;

    // The pause before the next try, in milliseconds, after `waited` of them:
    // short at first, since most servers are busy only for a moment.
    static DWORD pauseAfter(DWORD waited) noexcept;

    // Runs `attempt` until it returns something else than "busy" or the
    // patience is used up; returns its last answer.
    template <class Attempt>
    HRESULT retryWhileBusy(Attempt attempt) const
    {
        for (;;) {
            const HRESULT result = attempt();
            if (!saysBusy(result) || !pauseBeforeRetry()) return result;
        }
    }

private:
    static bool saysBusy(HRESULT result) noexcept;
    bool pauseBeforeRetry() const noexcept;

    DWORD start_;
};

}

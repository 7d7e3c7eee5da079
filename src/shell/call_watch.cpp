#include "shell/call_watch.h"

#include "automation/catch_all.h"
#include "automation/error.h"
#include "automation/outgoing_call.h"

#include <utility>

namespace hublink {

CallWatch::CallWatch(Times times)
    : times_(times), callStartTick_(automation::OutgoingCall::outermostStartTick()),
      watchEnds_(CreateEventW(nullptr, TRUE, FALSE, nullptr))
{
    if (!watchEnds_) throw automation::AutomationError(L"CreateEvent", HRESULT_FROM_WIN32(GetLastError()));
}

CallWatch::~CallWatch()
{
    SetEvent(watchEnds_.get());
    if (thread_) WaitForSingleObject(thread_.get(), INFINITE);
}

void CallWatch::start(std::function<void()> onLongCall, std::function<void()> onOverdueStop)
{
    if (thread_) return;
    onLongCall_ = std::move(onLongCall);
    onOverdueStop_ = std::move(onOverdueStop);
    thread_.reset(CreateThread(nullptr, 0, run, this, 0, nullptr));
    if (!thread_) throw automation::AutomationError(L"CreateThread", HRESULT_FROM_WIN32(GetLastError()));
}

void CallWatch::noteStopRequest() noexcept
{
    const DWORD now = GetTickCount();
    DWORD notRequested = 0;
    stopRequestTick_.compare_exchange_strong(notRequested, now != 0 ? now : 1);
}

bool CallWatch::callIsLong() const noexcept
{
    return isLongAgo(callStartTick_);
}

bool CallWatch::isLongAgo(const std::atomic<DWORD>& tick) const noexcept
{
    const DWORD since = tick;
    return since != 0 && GetTickCount() - since >= times_.longCallAfter;
}

DWORD WINAPI CallWatch::run(void* watch) noexcept
{
    return automation::catchAll(DWORD{1}, [self = static_cast<CallWatch*>(watch)] {
        while (WaitForSingleObject(self->watchEnds_.get(), self->times_.interval) == WAIT_TIMEOUT && self->look()) {}
        return DWORD{0};
    });
}

// The call may return between the two questions, or just before the program is ended for
// its sake. That does no harm: the stop was requested long ago, the next tick would end the
// program as well, and what it writes survives an end at any moment.
bool CallWatch::look() const
{
    if (!callIsLong()) return true;
    const bool isOverdue = isLongAgo(stopRequestTick_);
    (isOverdue ? onOverdueStop_ : onLongCall_)();
    return !isOverdue;
}

}

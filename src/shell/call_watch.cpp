#include "shell/call_watch.h"

#include "automation/border.h"
#include "automation/error.h"
#include "automation/outgoing_call.h"

#include <utility>

namespace hublink {

CallWatch::CallWatch(Times times)
    : times_(times), callBegan_(automation::OutgoingCall::beginOfOutermost()),
      finished_(CreateEventW(nullptr, TRUE, FALSE, nullptr))
{
    if (!finished_) throw automation::AutomationError(L"CreateEvent", HRESULT_FROM_WIN32(GetLastError()));
}

CallWatch::~CallWatch()
{
    SetEvent(finished_.get());
    if (thread_) WaitForSingleObject(thread_.get(), INFINITE);
}

void CallWatch::start(std::function<void()> onLongCall, std::function<void()> end)
{
    if (thread_) return;
    onLongCall_ = std::move(onLongCall);
    end_ = std::move(end);
    thread_.reset(CreateThread(nullptr, 0, run, this, 0, nullptr));
    if (!thread_) throw automation::AutomationError(L"CreateThread", HRESULT_FROM_WIN32(GetLastError()));
}

void CallWatch::stopIsAsked() noexcept
{
    const DWORD now = GetTickCount();
    DWORD notAsked = 0;
    stopAsked_.compare_exchange_strong(notAsked, now != 0 ? now : 1);
}

bool CallWatch::callIsLong() const noexcept
{
    return longAgo(callBegan_);
}

bool CallWatch::longAgo(const std::atomic<DWORD>& moment) const noexcept
{
    const DWORD when = moment;
    return when != 0 && GetTickCount() - when >= times_.patience;
}

DWORD WINAPI CallWatch::run(void* watch) noexcept
{
    return automation::atBorder(DWORD{1}, [self = static_cast<CallWatch*>(watch)] {
        while (WaitForSingleObject(self->finished_.get(), self->times_.interval) == WAIT_TIMEOUT && self->look()) {}
        return DWORD{0};
    });
}

// Whether there is anything left to watch.
bool CallWatch::look() const
{
    if (!callIsLong()) return true;
    const bool over = longAgo(stopAsked_);
    (over ? end_ : onLongCall_)();
    return !over;
}

}

#include "automation/message_filter.h"

#include "automation/catch_all.h"
#include "automation/outgoing_call.h"
#include "automation/unknown.h"

#include <utility>

namespace automation {

namespace {

class RetryFilter final : public Unknown<IMessageFilter> {
public:
    explicit RetryFilter(std::function<void()> onMessage) : onMessage_(std::move(onMessage)) {}

    // Events are only queued when they arrive, so they are welcome at any time.
    STDMETHODIMP_(DWORD) HandleInComingCall(DWORD, HTASK, DWORD, LPINTERFACEINFO) noexcept override
    {
        return SERVERCALL_ISHANDLED;
    }

    STDMETHODIMP_(DWORD) RetryRejectedCall(HTASK, DWORD waited, DWORD) noexcept override
    {
        if (waited >= OutgoingCall::busyTimeout) return static_cast<DWORD>(-1);
        // COM retries at once below 100 and waits that many milliseconds from there on.
        const DWORD pause = OutgoingCall::retryDelay(waited);
        return pause < 100 ? 100 : pause;
    }

    // The default would throw some of the mouse's messages away (vendor's help,
    // "IMessageFilter::MessagePending"), and a notification icon's look like those.
    STDMETHODIMP_(DWORD) MessagePending(HTASK, DWORD, DWORD) noexcept override
    {
        constexpr DWORD goOnWaiting = PENDINGMSG_WAITNOPROCESS;
        return catchAll(goOnWaiting, [&] {
            onMessage_();
            return goOnWaiting;
        });
    }

private:
    IUnknown* interfaceOf(REFIID iid) noexcept override { return iid == IID_IMessageFilter ? this : nullptr; }

    const std::function<void()> onMessage_;
};

}

BusyMessageFilter::BusyMessageFilter(std::function<void()> onMessage)
{
    const auto filter = ComPtr<IMessageFilter>::adopt(new RetryFilter(std::move(onMessage)));
    CoRegisterMessageFilter(filter.get(), previous_.receive());
}

BusyMessageFilter::~BusyMessageFilter()
{
    CoRegisterMessageFilter(previous_.get(), nullptr);
}

}

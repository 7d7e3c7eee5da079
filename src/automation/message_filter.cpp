#include "automation/message_filter.h"

#include "automation/outgoing_call.h"
#include "automation/unknown.h"

namespace automation {

namespace {

class RetryFilter final : public Unknown<IMessageFilter> {
public:
    // Events are only queued when they arrive, so they are welcome at any time.
    STDMETHODIMP_(DWORD) HandleInComingCall(DWORD, HTASK, DWORD, LPINTERFACEINFO) override
    {
        return SERVERCALL_ISHANDLED;
    }

    STDMETHODIMP_(DWORD) RetryRejectedCall(HTASK, DWORD waited, DWORD) override
    {
        if (waited >= OutgoingCall::patience) return static_cast<DWORD>(-1);
        // COM retries at once below 100 and waits that many milliseconds from there on.
        const DWORD pause = OutgoingCall::pauseAfter(waited);
        return pause < 100 ? 100 : pause;
    }

    STDMETHODIMP_(DWORD) MessagePending(HTASK, DWORD, DWORD) override { return PENDINGMSG_WAITDEFPROCESS; }

private:
    bool answers(REFIID iid) const override { return iid == IID_IMessageFilter; }
};

}

BusyMessageFilter::BusyMessageFilter()
{
    const auto filter = ComPtr<IMessageFilter>::adopt(new RetryFilter);
    CoRegisterMessageFilter(filter.get(), previous_.receive());
}

BusyMessageFilter::~BusyMessageFilter()
{
    CoRegisterMessageFilter(previous_.get(), nullptr);
}

}

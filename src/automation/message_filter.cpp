#include "automation/message_filter.h"

#include "automation/outgoing_call.h"

namespace automation {

namespace {

class RetryFilter final : public IMessageFilter {
public:
    STDMETHODIMP QueryInterface(REFIID iid, void** result) override
    {
        if (iid != IID_IUnknown && iid != IID_IMessageFilter) {
            *result = nullptr;
            return E_NOINTERFACE;
        }
        *result = static_cast<IMessageFilter*>(this);
        AddRef();
        return S_OK;
    }

    STDMETHODIMP_(ULONG) AddRef() override { return ++references_; }

    STDMETHODIMP_(ULONG) Release() override
    {
        const ULONG left = --references_;
        if (left == 0) delete this;
        return left;
    }

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
    ULONG references_ = 1;
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

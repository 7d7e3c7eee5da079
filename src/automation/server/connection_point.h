// Raises events: a connection point for one dispatch source interface, and the
// container through which clients find it. Made to be a part of an object: it
// shares that object's life and references.
#pragma once

#include "automation/com_ptr.h"
#include "automation/value.h"

#include <ocidl.h>
#include <olectl.h>

#include <initializer_list>
#include <map>

namespace automation::server {

class EventPoint final : public IConnectionPointContainer, public IConnectionPoint {
public:
    // `owner` outlives this; `source` is the identifier of its event interface.
    EventPoint(IUnknown* owner, REFIID source) noexcept : owner_(owner), source_(source) {}
    EventPoint(const EventPoint&) = delete;
    EventPoint& operator=(const EventPoint&) = delete;

    // Calls every subscriber, in the order of their subscription. A subscriber
    // that cannot be reached any more is dropped. Returns how many were reached.
    int raise(DISPID event, std::initializer_list<Value> arguments);

    std::size_t subscribers() const noexcept { return sinks_.size(); }

    IConnectionPointContainer* container() noexcept { return this; }

    STDMETHODIMP QueryInterface(REFIID iid, void** result) override;
    STDMETHODIMP_(ULONG) AddRef() override { return owner_->AddRef(); }
    STDMETHODIMP_(ULONG) Release() override { return owner_->Release(); }
    STDMETHODIMP EnumConnectionPoints(IEnumConnectionPoints** points) override;
    STDMETHODIMP FindConnectionPoint(REFIID iid, IConnectionPoint** point) override;
    STDMETHODIMP GetConnectionInterface(IID* iid) override;
    STDMETHODIMP GetConnectionPointContainer(IConnectionPointContainer** container) override;
    STDMETHODIMP Advise(IUnknown* sink, DWORD* cookie) override;
    STDMETHODIMP Unadvise(DWORD cookie) override;
    STDMETHODIMP EnumConnections(IEnumConnections** connections) override;

private:
    IUnknown* const owner_;
    const IID source_;
    std::map<DWORD, ComPtr<IDispatch>> sinks_;
    DWORD lastCookie_ = 0;
};

}

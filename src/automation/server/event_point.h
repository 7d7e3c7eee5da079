// Raises events: a connection point for one dispatch source interface, and the
// container through which clients find it. A part of the object that raises them.
#pragma once

#include "automation/com_ptr.h"
#include "automation/unknown.h"
#include "automation/value.h"

#include <ocidl.h>
#include <olectl.h>

#include <initializer_list>
#include <map>

namespace automation::server {

class EventPoint final : public Part<IConnectionPointContainer, IConnectionPoint> {
public:
    // `owner` outlives this and answers for its interfaces too; `source` is the
    // identifier of its event interface.
    EventPoint(IUnknown* owner, REFIID source) noexcept : Part(owner), source_(source) {}

    // Calls every subscriber, in the order of their subscription. A subscriber
    // that cannot be reached any more is dropped. Returns how many were reached.
    int raise(DISPID event, std::initializer_list<Value> arguments);

    std::size_t subscribers() const noexcept { return sinks_.size(); }

    IConnectionPointContainer* container() noexcept { return this; }

    // For the owner's QueryInterface; null when `iid` is neither of this part's.
    IUnknown* interfaceOf(REFIID iid) noexcept;

    STDMETHODIMP EnumConnectionPoints(IEnumConnectionPoints** points) noexcept override;
    STDMETHODIMP FindConnectionPoint(REFIID iid, IConnectionPoint** point) noexcept override;
    STDMETHODIMP GetConnectionInterface(IID* iid) noexcept override;
    STDMETHODIMP GetConnectionPointContainer(IConnectionPointContainer** container) noexcept override;
    STDMETHODIMP Advise(IUnknown* sink, DWORD* cookie) noexcept override;
    STDMETHODIMP Unadvise(DWORD cookie) noexcept override;
    STDMETHODIMP EnumConnections(IEnumConnections** connections) noexcept override;

private:
    const IID source_;
    std::map<DWORD, ComPtr<IDispatch>> sinks_;
    DWORD lastCookie_ = 0;
};

}

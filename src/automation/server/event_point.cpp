#include "automation/server/event_point.h"

#include "automation/catch_all.h"

#include <vector>

namespace automation::server {

namespace {

// Enumerates the one connection point of an object.
class PointEnumeration final : public Unknown<IEnumConnectionPoints> {
public:
    PointEnumeration(IConnectionPoint* point, bool done = false) : point_(point), done_(done) {}

    STDMETHODIMP Next(ULONG count, IConnectionPoint** points, ULONG* fetched) noexcept override
    {
        const bool returnsPoint = count > 0 && !done_;
        if (returnsPoint) {
            point_->AddRef();
            *points = point_.get();
        }
        done_ = done_ || returnsPoint;
        if (fetched) *fetched = returnsPoint ? 1 : 0;
        return returnsPoint && count == 1 ? S_OK : S_FALSE;
    }

    STDMETHODIMP Skip(ULONG count) noexcept override
    {
        const bool enough = count == 0 || (count == 1 && !done_);
        done_ = done_ || count > 0;
        return enough ? S_OK : S_FALSE;
    }

    STDMETHODIMP Reset() noexcept override
    {
        done_ = false;
        return S_OK;
    }

    STDMETHODIMP Clone(IEnumConnectionPoints** copy) noexcept override
    {
        *copy = nullptr;
        return catchAll([&] {
            *copy = new PointEnumeration(point_.get(), done_);
            return S_OK;
        });
    }

private:
    IUnknown* interfaceOf(REFIID iid) noexcept override { return iid == IID_IEnumConnectionPoints ? this : nullptr; }

    const ComPtr<IConnectionPoint> point_;
    bool done_;
};

bool isGone(HRESULT result)
{
    return result == RPC_E_DISCONNECTED || result == RPC_E_SERVER_DIED || result == RPC_E_SERVER_DIED_DNE ||
           result == CO_E_OBJNOTCONNECTED || result == HRESULT_FROM_WIN32(RPC_S_SERVER_UNAVAILABLE) ||
           result == HRESULT_FROM_WIN32(RPC_S_CALL_FAILED);
}

}

int EventPoint::raise(DISPID event, std::initializer_list<Value> arguments)
{
    std::vector<VARIANT> reversed;
    for (auto argument = arguments.end(); argument != arguments.begin();) reversed.push_back((--argument)->variant());
    DISPPARAMS parameters{reversed.data(), nullptr, static_cast<UINT>(reversed.size()), 0};

    int reached = 0;
    const auto snapshot = sinks_; // a subscriber may leave, or join, during its call
    for (const auto& [cookie, sink] : snapshot) {
        const HRESULT result =
            sink->Invoke(event, IID_NULL, LOCALE_USER_DEFAULT, DISPATCH_METHOD, &parameters, nullptr, nullptr, nullptr);
        if (isGone(result)) sinks_.erase(cookie);
        if (SUCCEEDED(result)) ++reached;
    }
    return reached;
}

IUnknown* EventPoint::interfaceOf(REFIID iid) noexcept
{
    if (iid == IID_IConnectionPointContainer) return static_cast<IConnectionPointContainer*>(this);
    // One COM object with its point: a proxy asks the object for both.
    return iid == IID_IConnectionPoint ? static_cast<IConnectionPoint*>(this) : nullptr;
}

STDMETHODIMP EventPoint::EnumConnectionPoints(IEnumConnectionPoints** points) noexcept
{
    *points = nullptr;
    return catchAll([&] {
        *points = new PointEnumeration(this);
        return S_OK;
    });
}

STDMETHODIMP EventPoint::FindConnectionPoint(REFIID iid, IConnectionPoint** point) noexcept
{
    *point = nullptr;
    if (iid != source_) return CONNECT_E_NOCONNECTION;
    *point = this;
    AddRef();
    return S_OK;
}

STDMETHODIMP EventPoint::GetConnectionInterface(IID* iid) noexcept
{
    *iid = source_;
    return S_OK;
}

STDMETHODIMP EventPoint::GetConnectionPointContainer(IConnectionPointContainer** container) noexcept
{
    *container = this;
    AddRef();
    return S_OK;
}

STDMETHODIMP EventPoint::Advise(IUnknown* sink, DWORD* cookie) noexcept
{
    *cookie = 0;
    return catchAll([&] {
        ComPtr<IDispatch> dispatch;
        if (!sink || FAILED(sink->QueryInterface(IID_IDispatch, dispatch.receiveVoid())))
            return CONNECT_E_CANNOTCONNECT;
        sinks_.emplace(++lastCookie_, dispatch);
        *cookie = lastCookie_;
        return S_OK;
    });
}

STDMETHODIMP EventPoint::Unadvise(DWORD cookie) noexcept
{
    return sinks_.erase(cookie) ? S_OK : CONNECT_E_NOCONNECTION;
}

STDMETHODIMP EventPoint::EnumConnections(IEnumConnections** connections) noexcept
{
    *connections = nullptr;
    return E_NOTIMPL;
}

}

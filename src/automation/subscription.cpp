#include "automation/subscription.h"

#include "automation/catch_all.h"
#include "automation/error.h"
#include "automation/outgoing_call.h"
#include "automation/text.h"
#include "automation/unknown.h"

#include <atomic>
#include <utility>

namespace automation {

namespace {

std::atomic<long> liveSinks = 0;

EventArguments argumentsOf(const DISPPARAMS& parameters)
{
    EventArguments arguments;
    arguments.reserve(parameters.cArgs);
    for (UINT index = parameters.cArgs; index-- > 0;) arguments.push_back(Value::copyOf(parameters.rgvarg[index]));
    return arguments;
}

}

class EventSink final : public Unknown<IDispatch> {
public:
    EventSink(const EventSource& source, const EventHandlers& handlers)
        : interfaceId_(source.dispatchOnly ? source.interfaceId : IID_IDispatch)
    {
        for (const auto& [id, eventName] : source.names)
            for (const auto& [handlerName, handler] : handlers)
                if (equalIgnoringCase(eventName, handlerName)) handlers_.emplace(id, handler);
        ++liveSinks;
    }

    void detach() noexcept { handlers_.clear(); }

    STDMETHODIMP GetTypeInfoCount(UINT* count) noexcept override
    {
        *count = 0;
        return S_OK;
    }

    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo**) noexcept override { return E_NOTIMPL; }
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR*, UINT, LCID, DISPID*) noexcept override { return DISP_E_UNKNOWNNAME; }

    // An event that cannot be kept is lost; its source has done its part.
    STDMETHODIMP Invoke(DISPID id, REFIID, LCID, WORD, DISPPARAMS* parameters, VARIANT*, EXCEPINFO*,
                        UINT*) noexcept override
    {
        return catchAll(S_OK, [&] {
            const auto found = handlers_.find(id);
            if (found == handlers_.end()) return S_OK;
            const auto handler = found->second;
            handler(argumentsOf(*parameters));
            return S_OK;
        });
    }

private:
    IUnknown* interfaceOf(REFIID iid) noexcept override
    {
        return iid == IID_IDispatch || iid == interfaceId_ ? this : nullptr;
    }

    ~EventSink() override { --liveSinks; }

    const IID interfaceId_;
    std::map<DISPID, std::function<void(EventArguments)>> handlers_;
};

Subscription::Subscription(const Object& object, const wchar_t* progId, EventHandlers handlers)
{
    const EventSource source = findEventSource(object, progId);
    const OutgoingCall scope;
    ComPtr<IConnectionPointContainer> container;
    check(object.dispatch()->QueryInterface(IID_IConnectionPointContainer, container.receiveVoid()),
          L"IConnectionPointContainer");
    check(container->FindConnectionPoint(source.interfaceId, point_.receive()), L"FindConnectionPoint");
    sink_ = ComPtr<EventSink>::adopt(new EventSink(source, handlers));
    const HRESULT advised = point_->Advise(sink_.get(), &cookie_);
    if (FAILED(advised)) {
        sink_.reset();
        throw AutomationError(L"Advise", advised);
    }
}

Subscription::Subscription() noexcept = default;
Subscription::Subscription(Subscription&& other) noexcept = default;

Subscription::~Subscription()
{
    detach();
}

Subscription::operator bool() const noexcept
{
    return static_cast<bool>(sink_);
}

Subscription& Subscription::operator=(Subscription&& other) noexcept
{
    detach();
    sink_ = std::move(other.sink_);
    point_ = std::move(other.point_);
    cookie_ = std::exchange(other.cookie_, 0);
    return *this;
}

void Subscription::detach() noexcept
{
    if (!sink_) return;
    sink_->detach();
    sink_.reset();
    const OutgoingCall scope;
    point_->Unadvise(cookie_);
    point_.reset();
}

long liveEventSinks() noexcept
{
    return liveSinks;
}

}

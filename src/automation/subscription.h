// Receives an object's events. The sink only keeps an event's arguments and
// hands them to the handler given for its name; the handler decides
// when its work is done.
#pragma once

#include "automation/event_source.h"

#include <ocidl.h>

#include <functional>
#include <map>
#include <string>
#include <vector>

namespace automation {

using EventArguments = std::vector<Value>; // from left to right
using EventHandlers = std::map<std::wstring, std::function<void(EventArguments)>>;

class EventSink;

// A subscription that ends with this object, or with detach().
class Subscription {
public:
    Subscription() noexcept;

    // Subscribes to the object's default source interface. Handlers are found
    // by event name, without regard to case; other events are ignored. Throws
    // AutomationError when the object has no events or refuses.
    Subscription(const Object& object, const wchar_t* progId, EventHandlers handlers);

    Subscription(Subscription&& other) noexcept;
    Subscription& operator=(Subscription&& other) noexcept;
    ~Subscription();

    // No handler runs after this, even if the object cannot be reached any more.
    void detach() noexcept;

    explicit operator bool() const noexcept;

private:
    ComPtr<EventSink> sink_;
    ComPtr<IConnectionPoint> point_;
    DWORD cookie_ = 0;
};

// Sinks alive in this process: none is left when all subscriptions have ended
// and their objects have let go.
long liveEventSinks() noexcept;

}

// Finds, at run time, which events an object raises: its default source
// interface and the dispatch identifier of each event, by name. Nothing about
// the object has to be known when the program is built.
#pragma once

#include "automation/object.h"

#include <map>
#include <string>

namespace automation {

struct EventSource {
    IID interfaceId = IID_NULL;
    std::map<DISPID, std::wstring> names;
    // Whether a plain IDispatch can stand for the interface. A dual one is
    // raised through IDispatch too, but nothing may be passed off as it.
    bool dispatchOnly = true;
};

// The object is asked for its class information, then for the type library
// that describes it; failing both, the type library registered for `progId` is
// searched ("" when the object's class has none). Throws AutomationError when
// no way leads to a source interface.
EventSource findEventSource(const Object& object, const wchar_t* progId);

}

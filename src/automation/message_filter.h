// Makes COM ask a busy server again instead of failing at once or showing
// its "server busy" dialog, and to leave the user's messages alone meanwhile.
#pragma once

#include "automation/com_ptr.h"

#include <objidl.h>

#include <functional>

namespace automation {

// Registers the filter for the calling thread, for as long as this lives.
class BusyMessageFilter {
public:
    // `onMessage` runs inside a call during which a message has arrived. It may
    // take messages out of the queue, but make no call and throw nothing.
    explicit BusyMessageFilter(std::function<void()> onMessage = [] {});
    ~BusyMessageFilter();
    BusyMessageFilter(const BusyMessageFilter&) = delete;
    BusyMessageFilter& operator=(const BusyMessageFilter&) = delete;

private:
    ComPtr<IMessageFilter> previous_;
};

}

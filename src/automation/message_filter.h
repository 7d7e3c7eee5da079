// Tells COM to ask a busy server again instead of failing at once or showing
// its "server busy" dialog.
#pragma once

#include "automation/com_ptr.h"

#include <objidl.h>

namespace automation {

// Registers the filter for the calling thread, for as long as this lives.
class BusyMessageFilter {
public:
    BusyMessageFilter();
    ~BusyMessageFilter();
    BusyMessageFilter(const BusyMessageFilter&) = delete;
    BusyMessageFilter& operator=(const BusyMessageFilter&) = delete;

private:
    ComPtr<IMessageFilter> previous_;
};

}

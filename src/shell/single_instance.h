// One Hublink a user session.
#pragma once

#include "automation/owners.h"

namespace hublink {

class SingleInstance {
public:
    SingleInstance();
    SingleInstance(const SingleInstance&) = delete;
    SingleInstance& operator=(const SingleInstance&) = delete;

    // Whether this is the session's first; a later one must touch nothing.
    bool isFirst() const noexcept { return isFirst_; }

private:
    automation::Handle mutex_;
    bool isFirst_;
};

}

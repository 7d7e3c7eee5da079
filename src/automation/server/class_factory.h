// Offers a class to the clients of a local server for as long as this lives.
#pragma once

#include "automation/server/dispatch.h"

#include <functional>

namespace automation::server {

class ClassFactory {
public:
    using Creator = std::function<ComPtr<IDispatch>()>;

    // Registers the running factory: one process serves every client. `onLastUnlock`
    // is called when a client's unlocking took the process's last reference.
    // Throws AutomationError when COM refuses.
    ClassFactory(const CLSID& classId, Creator create, std::function<void()> onLastUnlock = {});
    ~ClassFactory() { revoke(); }
    ClassFactory(const ClassFactory&) = delete;
    ClassFactory& operator=(const ClassFactory&) = delete;

    // No new object can be asked for after this.
    void revoke() noexcept;

private:
    DWORD cookie_ = 0;
};

}

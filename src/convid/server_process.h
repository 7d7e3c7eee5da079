// Serves the identifier map to every client of the user's session, and ends
// with the last object.
#pragma once

#include "automation/milliseconds.h"
#include "automation/owners.h"
#include "automation/server/class_factory.h"
#include "automation/server/end_request.h"

#include <memory>
#include <optional>

namespace convid {

class IdentifierStore;

// Has to outlive COM on its thread: objects that are still held are released
// while COM ends.
class ServerProcess {
public:
    ServerProcess() = default;
    ServerProcess(const ServerProcess&) = delete;
    ServerProcess& operator=(const ServerProcess&) = delete;

    // Returns when nobody needs the process any more, or somebody asks it to end all
    // the same. A client that never comes is waited for `timeout`.
    // Throws AutomationError when the class cannot be offered.
    void run(automation::Milliseconds timeout);

private:
    bool waitForMessage(MSG& message);
    void registerFactory();
    void finish() noexcept;
    void dispatchPendingMessages();
    std::shared_ptr<IdentifierStore> sharedStore();

    const automation::Handle endEvent_ = automation::server::createEndEvent();
    std::optional<automation::server::ClassFactory> factory_;
    std::weak_ptr<IdentifierStore> store_; // the objects own it
    bool finishing_ = false;
};

}

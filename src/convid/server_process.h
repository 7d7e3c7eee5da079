// Serves the identifier map to every client of the user's session, and ends
// with the last object.
#pragma once

#include "automation/owners.h"
#include "automation/server/class_factory.h"
#include "automation/server/end_request.h"

#include <memory>
#include <optional>

namespace convid {

class IdentifierStore;

// Outlives the thread's COM: what still holds an object then lets go of it
// while COM ends.
class ServerProcess {
public:
    ServerProcess() = default;
    ServerProcess(const ServerProcess&) = delete;
    ServerProcess& operator=(const ServerProcess&) = delete;

    // Returns when nobody needs the process any more, or somebody asks it to end all
    // the same. A client that never comes is waited for `patience` milliseconds.
    // Throws AutomationError when the class cannot be offered.
    void run(UINT patience);

private:
    bool nextMessage(MSG& message);
    void offer();
    void finish() noexcept;
    void serveWaiting();
    std::shared_ptr<IdentifierStore> sharedStore();

    const automation::Handle endAskedFor_ = automation::server::offerEnd();
    std::optional<automation::server::ClassFactory> factory_;
    std::weak_ptr<IdentifierStore> store_; // the objects own it
    bool finishing_ = false;
};

}

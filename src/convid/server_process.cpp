#include "convid/server_process.h"

#include "convid/class_identity.h"
#include "convid/map_object.h"
#include "convid/store_place.h"

namespace convid {

namespace server = automation::server;

void ServerProcess::run(automation::Milliseconds timeout)
{
    registerFactory();
    const UINT_PTR firstClient = SetTimer(nullptr, 0, timeout, nullptr);
    MSG message;
    while (!finishing_ && waitForMessage(message)) {
        if (message.message == WM_TIMER && !message.hwnd && message.wParam == firstClient) {
            KillTimer(nullptr, firstClient);
            CoAddRefServerProcess();
            if (CoReleaseServerProcess() == 0) finish();
        }
        DispatchMessageW(&message);
        if (finishing_) dispatchPendingMessages();
    }
    factory_.reset();
}

// Waits for it. False when the process shall end.
bool ServerProcess::waitForMessage(MSG& message)
{
    const HANDLE endEvent = endEvent_.get();
    while (!PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        const DWORD events = endEvent ? 1 : 0;
        const DWORD woken = MsgWaitForMultipleObjects(events, &endEvent, FALSE, INFINITE, QS_ALLINPUT);
        if (events == 1 && woken == WAIT_OBJECT_0) return false;
    }
    return message.message != WM_QUIT;
}

void ServerProcess::registerFactory()
{
    const auto create = [this] { return automation::ComPtr<IDispatch>(server::make<MapObject>(sharedStore())); };
    factory_.emplace(classRegistration.classId, create, [this] { finish(); });
}

// Called the moment COM has counted the process out, before the client's call
// returns: whoever asks for an object from now on gets a new process.
void ServerProcess::finish() noexcept
{
    factory_.reset();
    finishing_ = true;
    PostThreadMessageW(GetCurrentThreadId(), WM_NULL, 0, 0);
}

// A client may have found the class just before it was withdrawn. Its request
// waits in the queue; served, it keeps the process.
void ServerProcess::dispatchPendingMessages()
{
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) DispatchMessageW(&message);
}

// The one store of this process. It exists as long as any object does, and so
// stands for all of them in COM's count of this process's users.
std::shared_ptr<IdentifierStore> ServerProcess::sharedStore()
{
    if (auto present = store_.lock()) return present;
    const auto release = [this](IdentifierStore* store) {
        // The file is free before a next process can be asked for.
        delete store;
        if (CoReleaseServerProcess() == 0) finish();
    };
    auto made = std::make_unique<IdentifierStore>(storePath());
    CoAddRefServerProcess();
    const std::shared_ptr<IdentifierStore> store(made.release(), release);
    store_ = store;
    if (finishing_) {
        CoResumeClassObjects();
        registerFactory();
        finishing_ = false;
    }
    return store;
}

}

// The simulated softphone without its windows: its contents, its automation
// objects and its events. Lives on one thread, in its own program or inside a
// unit test:
//
//     desk::Recorder recorder;
//     desk::softphone::Softphone softphone(recorder);
//     const automation::Object pavex(softphone.application().get());
//     softphone.ring({{L"0123", L"Martin", L"Anne"}, true, L"4711"});
//
// It outlives the objects that clients got from it.
#pragma once

#include "desk/softphone/application.h"

#include <deque>

namespace desk::softphone {

class Softphone {
public:
    explicit Softphone(Recorder& recorder);
    Softphone(const Softphone&) = delete;
    Softphone& operator=(const Softphone&) = delete;

    // What every client gets, always the same object.
    automation::ComPtr<IDispatch> application() const { return application_; }

    Phone& phone() noexcept { return phone_; }
    const Phone& phone() const noexcept { return phone_; }

    // A new call on the line, and its end (which has no event).
    void ring(CallRecord call);
    void hangUp();

    // Each changes the contents at once, then raises its event. Adding gives
    // the identifier 0.0 the next free one and returns it. Adding throws
    // std::runtime_error for an identifier in use, removing for an unknown one.
    RecordId addHistory(HistoryRecord record);
    void removeHistory(RecordId id);
    RecordId addEntry(EntryRecord record);
    void removeEntry(RecordId id);

    // The user quits the softphone. Raised once only.
    void quit();

    // Without this, an event reaches its subscribers before the function that
    // raised it returns. With it, the event waits, and this is told: the owner
    // then calls deliver() when no client can be kept waiting by it.
    std::function<void()> eventWaits;

    // Tells the waiting events to their subscribers, one after the other in
    // the order of their happening. Called again while a subscriber is being
    // told, it leaves them to the delivery under way.
    void deliver();

    // Cuts the clients in other processes off: their references are void.
    void disconnectClients();

    // Events not yet told to all of their subscribers.
    std::size_t waiting() const noexcept { return events_.size(); }

    // Subscribers of "Application", "Line", "History" and "AddressBook".
    std::vector<std::pair<std::wstring, std::size_t>> subscribers() const;

private:
    void raise(std::function<void()> event);

    Phone phone_;
    const automation::ComPtr<Application> application_;
    std::deque<std::function<void()>> events_;
    bool delivering_ = false;
    bool quit_ = false;
};

}

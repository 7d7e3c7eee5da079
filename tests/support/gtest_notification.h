// GoogleTest's Notification without std::mutex, which this compiler's library
// lacks because it keeps to the functions that Windows XP has. Included ahead
// of GoogleTest's own headers by the build.
#pragma once

#include <windows.h>

namespace testing {
namespace internal {

class Notification {
public:
    Notification() : event_(CreateEventW(nullptr, TRUE, FALSE, nullptr)) {}
    ~Notification() { CloseHandle(event_); }
    Notification(const Notification&) = delete;
    Notification& operator=(const Notification&) = delete;

    void Notify() { SetEvent(event_); }
    void WaitForNotification() { WaitForSingleObject(event_, INFINITE); }

private:
    HANDLE event_;
};

}
}

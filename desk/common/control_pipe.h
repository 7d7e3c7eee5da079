// How a test or a player talks to a partner: a named pipe, one request text
// answered by one response text, both UTF-8. The server's thread only carries
// the texts; the work is done on the partner's main thread, where its objects
// live, also while that thread waits in a call into another process.
#pragma once

#include "automation/owners.h"

#include <windows.h>

#include <functional>
#include <string>
#include <string_view>

namespace desk {

// \\.\pipe\hublink-desk-NAME
std::wstring controlPipeName(std::wstring_view partner);

class ControlPipe {
public:
    // Both run on the pipe's own thread; `answered` once the client has the response.
    using Answer = std::function<std::wstring(const std::wstring& request)>;
    using Answered = std::function<void()>;

    // Throws std::runtime_error when the pipe cannot be made.
    ControlPipe(std::wstring_view partner, Answer answer, Answered answered);

    // Ends the thread. Messages sent to the caller's windows are still
    // answered meanwhile, because the thread may wait for one.
    ~ControlPipe();
    ControlPipe(const ControlPipe&) = delete;
    ControlPipe& operator=(const ControlPipe&) = delete;

private:
    static DWORD WINAPI run(void* self) noexcept;
    void serve();
    enum class Outcome { done, more, failed };
    Outcome finish(bool started, OVERLAPPED& operation, DWORD& count);
    bool connect();
    std::string readRequest();
    void respond(const std::string& response);

    const Answer answer_;
    const Answered answered_;
    automation::Handle pipe_;
    automation::Handle ready_; // an operation on the pipe has ended
    automation::Handle stop_;
    automation::Handle thread_;
};

inline constexpr DWORD usualTimeout = 10'000; // milliseconds

// The client's side: sends `request` to the partner ("outlook", "pavex") and
// returns its response. Tries again until the partner is there. Throws
// std::runtime_error when there is no response within `timeout` milliseconds,
// or when the partner ends in between; a response "error: ..." is returned as
// it is. Messages of the calling thread are dispatched while it waits, so that
// the partner may call back.
std::wstring ask(std::wstring_view partner, std::wstring_view request, DWORD timeout = usualTimeout);

}

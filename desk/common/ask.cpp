#include "desk/common/control_pipe.h"
#include "desk/common/text.h"

#include <algorithm>
#include <stdexcept>
#include <vector>

namespace desk {

namespace {

constexpr DWORD pauseBetweenTries = 5; // milliseconds

// One request on its way, with the time that it may take.
class Request {
public:
    Request(std::wstring_view partner, DWORD timeout) : partner_(partner), timeout_(timeout), start_(GetTickCount()) {}

    void connect();
    void send(const std::string& text);
    std::string receive();

private:
    [[noreturn]] void fail(const std::string& what) const
    {
        throw std::runtime_error("the partner \"" + utf8(partner_) + "\" " + what);
    }

    DWORD left() const
    {
        const DWORD passed = GetTickCount() - start_;
        return passed < timeout_ ? timeout_ - passed : 0;
    }

    void wait(DWORD milliseconds, DWORD handles, const HANDLE* handle) const;
    DWORD finish(bool started, OVERLAPPED& operation, bool& more);

    const std::wstring partner_;
    const DWORD timeout_;
    const DWORD start_;
    automation::Handle pipe_;
    const automation::Handle ready_{CreateEventW(nullptr, TRUE, FALSE, nullptr)};
};

// Returns at the latest after `milliseconds`, or when the handle is signalled.
void Request::wait(DWORD milliseconds, DWORD handles, const HANDLE* handle) const
{
    const DWORD begin = GetTickCount();
    for (;;) {
        const DWORD passed = GetTickCount() - begin;
        if (passed >= milliseconds) return;
        const DWORD woken = MsgWaitForMultipleObjects(handles, handle, FALSE, milliseconds - passed, QS_ALLINPUT);
        if (woken != WAIT_OBJECT_0 + handles) return;
        MSG message;
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
            TranslateMessage(&message);
            DispatchMessageW(&message);
        }
    }
}

void Request::connect()
{
    const std::wstring name = controlPipeName(partner_);
    for (;;) {
        pipe_ = automation::ownedIfValid(CreateFileW(name.c_str(), GENERIC_READ | GENERIC_WRITE, 0, nullptr,
                                                     OPEN_EXISTING, FILE_FLAG_OVERLAPPED, nullptr));
        if (pipe_) break;
        if (left() == 0) fail(GetLastError() == ERROR_PIPE_BUSY ? "is busy with other requests" : "is not running");
        wait(std::min(pauseBetweenTries, left()), 0, nullptr);
    }
    DWORD mode = PIPE_READMODE_MESSAGE;
    SetNamedPipeHandleState(pipe_.get(), &mode, nullptr, nullptr);
}

// How many bytes were moved by the operation just started, and whether the
// message goes on.
DWORD Request::finish(bool started, OVERLAPPED& operation, bool& more)
{
    if (!started && GetLastError() != ERROR_IO_PENDING && GetLastError() != ERROR_MORE_DATA)
        fail("ended before it answered");
    const HANDLE ready = ready_.get();
    wait(left(), 1, &ready);
    DWORD count = 0;
    if (WaitForSingleObject(ready, 0) != WAIT_OBJECT_0) {
        CancelIo(pipe_.get());
        GetOverlappedResult(pipe_.get(), &operation, &count, TRUE);
        fail("did not answer in time");
    }
    more = false;
    if (!GetOverlappedResult(pipe_.get(), &operation, &count, TRUE)) {
        if (GetLastError() != ERROR_MORE_DATA) fail("ended before it answered");
        more = true;
    }
    return count;
}

void Request::send(const std::string& text)
{
    OVERLAPPED operation{};
    operation.hEvent = ready_.get();
    const bool started = WriteFile(pipe_.get(), text.data(), static_cast<DWORD>(text.size()), nullptr, &operation);
    bool more = false;
    finish(started, operation, more);
}

std::string Request::receive()
{
    std::string text;
    std::vector<char> buffer(1024 * 1024);
    for (bool more = true; more;) {
        OVERLAPPED operation{};
        operation.hEvent = ready_.get();
        const bool started =
            ReadFile(pipe_.get(), buffer.data(), static_cast<DWORD>(buffer.size()), nullptr, &operation);
        const DWORD count = finish(started, operation, more);
        text.append(buffer.data(), count);
    }
    return text;
}

}

std::wstring ask(std::wstring_view partner, std::wstring_view request, DWORD timeout)
{
    Request sent(partner, timeout);
    sent.connect();
    sent.send(utf8(request));
    return fromUtf8(sent.receive());
}

}

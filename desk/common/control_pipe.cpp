#include "desk/common/control_pipe.h"

#include "automation/catch_all.h"
#include "desk/common/text.h"

#include <stdexcept>
#include <vector>

namespace desk {

namespace {

constexpr DWORD bufferSize = 64 * 1024;
constexpr DWORD stopPatience = 3'000; // milliseconds

}

std::wstring controlPipeName(std::wstring_view partner)
{
    return L"\\\\.\\pipe\\hublink-desk-" + std::wstring(partner);
}

ControlPipe::ControlPipe(std::wstring_view partner, Answer answer, Answered answered)
    : answer_(std::move(answer)), answered_(std::move(answered))
{
    pipe_ = automation::ownedIfValid(
        CreateNamedPipeW(controlPipeName(partner).c_str(), PIPE_ACCESS_DUPLEX | FILE_FLAG_OVERLAPPED,
                         PIPE_TYPE_MESSAGE | PIPE_READMODE_MESSAGE | PIPE_WAIT, 1, bufferSize, bufferSize, 0, nullptr));
    if (!pipe_) throw std::runtime_error("the control pipe exists already");
    ready_.reset(CreateEventW(nullptr, TRUE, FALSE, nullptr));
    stop_.reset(CreateEventW(nullptr, TRUE, FALSE, nullptr));
    thread_.reset(CreateThread(nullptr, 0, run, this, 0, nullptr));
}

ControlPipe::~ControlPipe()
{
    SetEvent(stop_.get());
    const HANDLE thread = thread_.get();
    const DWORD start = GetTickCount();
    MSG message;
    while (GetTickCount() - start < stopPatience &&
           MsgWaitForMultipleObjects(1, &thread, FALSE, 100, QS_SENDMESSAGE) != WAIT_OBJECT_0)
        PeekMessageW(&message, nullptr, 0, 0, PM_NOREMOVE | PM_QS_SENDMESSAGE);
}

DWORD WINAPI ControlPipe::run(void* self) noexcept
{
    return automation::catchAll(DWORD{1}, [self] {
        static_cast<ControlPipe*>(self)->serve();
        return DWORD{0};
    });
}

// Waits for an operation on the pipe that was just started.
ControlPipe::Outcome ControlPipe::finish(bool started, OVERLAPPED& operation, DWORD& count)
{
    if (!started && GetLastError() != ERROR_IO_PENDING && GetLastError() != ERROR_MORE_DATA) return Outcome::failed;
    const HANDLE handles[] = {stop_.get(), ready_.get()};
    if (WaitForMultipleObjects(2, handles, FALSE, INFINITE) == WAIT_OBJECT_0) {
        CancelIo(pipe_.get());
        GetOverlappedResult(pipe_.get(), &operation, &count, TRUE);
        return Outcome::failed;
    }
    if (GetOverlappedResult(pipe_.get(), &operation, &count, TRUE)) return Outcome::done;
    return GetLastError() == ERROR_MORE_DATA ? Outcome::more : Outcome::failed;
}

std::string ControlPipe::readRequest()
{
    std::string request;
    std::vector<char> buffer(bufferSize);
    for (Outcome outcome = Outcome::more; outcome == Outcome::more;) {
        OVERLAPPED operation{};
        operation.hEvent = ready_.get();
        DWORD count = 0;
        const bool started = ReadFile(pipe_.get(), buffer.data(), bufferSize, nullptr, &operation);
        outcome = finish(started, operation, count);
        if (outcome == Outcome::failed) return {};
        request.append(buffer.data(), count);
    }
    return request;
}

bool ControlPipe::connect()
{
    OVERLAPPED operation{};
    operation.hEvent = ready_.get();
    const bool connected = ConnectNamedPipe(pipe_.get(), &operation);
    if (connected || GetLastError() == ERROR_PIPE_CONNECTED) return true;
    DWORD count = 0;
    return finish(false, operation, count) == Outcome::done;
}

void ControlPipe::respond(const std::string& response)
{
    OVERLAPPED operation{};
    operation.hEvent = ready_.get();
    const bool started =
        WriteFile(pipe_.get(), response.data(), static_cast<DWORD>(response.size()), nullptr, &operation);
    DWORD count = 0;
    // What is not yet read would be lost with the connection.
    if (finish(started, operation, count) == Outcome::done) FlushFileBuffers(pipe_.get());
}

void ControlPipe::serve()
{
    while (WaitForSingleObject(stop_.get(), 0) != WAIT_OBJECT_0) {
        const std::string request = connect() ? readRequest() : std::string();
        if (!request.empty()) {
            respond(utf8(answer_(fromUtf8(request))));
            answered_();
        }
        DisconnectNamedPipe(pipe_.get());
    }
}

}

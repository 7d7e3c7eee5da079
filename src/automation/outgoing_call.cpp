#include "automation/outgoing_call.h"

#include <algorithm>

namespace automation {

namespace {

struct ThreadCalls {
    int depth = 0;
    std::atomic<DWORD> startTick{0}; // of the outermost call; 0 without one
};

constinit thread_local ThreadCalls calls;

}

OutgoingCall::OutgoingCall() noexcept : startTick_(GetTickCount())
{
    if (calls.depth++ == 0) calls.startTick = startTick_ != 0 ? startTick_ : 1; // 0 means none
}

OutgoingCall::~OutgoingCall()
{
    if (--calls.depth == 0) calls.startTick = 0;
}

bool OutgoingCall::inProgress() noexcept
{
    return calls.depth > 0;
}

const std::atomic<DWORD>& OutgoingCall::outermostStartTick() noexcept
{
    return calls.startTick;
}

Milliseconds OutgoingCall::retryDelay(Milliseconds waited) noexcept
{
    return std::clamp<Milliseconds>(waited / 2, 10, 500);
}

bool OutgoingCall::isBusy(HRESULT result) noexcept
{
    return result == RPC_E_SERVERCALL_RETRYLATER || result == RPC_E_CALL_REJECTED;
}

bool OutgoingCall::pauseBeforeRetry() const noexcept
{
    const Milliseconds waited = GetTickCount() - startTick_;
    if (waited >= busyTimeout) return false;
    Sleep(std::min(retryDelay(waited), busyTimeout - waited));
    return true;
}

}

#include "automation/outgoing_call.h"

#include <algorithm>

namespace automation {

namespace {

thread_local int depth = 0;

}

OutgoingCall::OutgoingCall() noexcept : start_(GetTickCount())
{
    ++depth;
}

OutgoingCall::~OutgoingCall()
{
    --depth;
}

bool OutgoingCall::inProgress() noexcept
{
    return depth > 0;
}

DWORD OutgoingCall::pauseAfter(DWORD waited) noexcept
{
    return std::clamp<DWORD>(waited / 2, 10, 500);
}

bool OutgoingCall::saysBusy(HRESULT result) noexcept
{
    return result == RPC_E_SERVERCALL_RETRYLATER || result == RPC_E_CALL_REJECTED;
}

bool OutgoingCall::pauseBeforeRetry() const noexcept
{
    const DWORD waited = GetTickCount() - start_;
    if (waited >= patience) return false;
    Sleep(std::min(pauseAfter(waited), patience - waited));
    return true;
}

}

#include "automation/outgoing_call.h"

#include <algorithm>

namespace automation {

namespace {

struct ThreadCalls {
    int depth = 0;
    std::atomic<DWORD> begin{0};
};

constinit thread_local ThreadCalls calls;

}

OutgoingCall::OutgoingCall() noexcept : start_(GetTickCount())
{
    if (calls.depth++ == 0) calls.begin = start_ != 0 ? start_ : 1; // 0 means none
}

OutgoingCall::~OutgoingCall()
{
    if (--calls.depth == 0) calls.begin = 0;
}

bool OutgoingCall::inProgress() noexcept
{
    return calls.depth > 0;
}

const std::atomic<DWORD>& OutgoingCall::beginOfOutermost() noexcept
{
    return calls.begin;
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

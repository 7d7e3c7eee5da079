// The thread's message filter: what COM does with it on Windows is asked of
// the registered filter directly, since not every system calls it.
#include "automation/message_filter.h"
#include "automation/outgoing_call.h"

#include <gtest/gtest.h>

#include <new>

using automation::BusyMessageFilter;
using automation::ComPtr;

namespace {

// The filter in force for this thread.
ComPtr<IMessageFilter> current()
{
    ComPtr<IMessageFilter> filter;
    CoRegisterMessageFilter(nullptr, filter.receive());
    CoRegisterMessageFilter(filter.get(), nullptr);
    return filter;
}

}

TEST(BusyMessageFilter, IsRegisteredWhileItLives_AndGoneAfterwards)
{
    EXPECT_FALSE(current());
    {
        const BusyMessageFilter filter;
        EXPECT_TRUE(current());
    }
    EXPECT_FALSE(current());
}

TEST(BusyMessageFilter, FilterOfBefore_IsRestored)
{
    const BusyMessageFilter outer;
    const auto before = current();
    {
        const BusyMessageFilter inner;
        EXPECT_NE(current().get(), before.get());
    }
    EXPECT_EQ(current().get(), before.get());
}

TEST(BusyMessageFilter, RejectedCall_IsAskedAgainAfterAPause_UntilThePatienceIsUsedUp)
{
    const BusyMessageFilter filter;
    const auto registered = current();
    ASSERT_TRUE(registered);
    for (const DWORD kind : {SERVERCALL_RETRYLATER, SERVERCALL_REJECTED}) {
        // Below 100, COM would ask again without any pause.
        EXPECT_GE(registered->RetryRejectedCall(nullptr, 0, kind), 100u);
        const DWORD late = registered->RetryRejectedCall(nullptr, automation::OutgoingCall::busyTimeout - 1, kind);
        EXPECT_GE(late, 100u);
        EXPECT_LE(late, 1000u);
        EXPECT_EQ(registered->RetryRejectedCall(nullptr, automation::OutgoingCall::busyTimeout, kind), ~0u);
    }
}

TEST(BusyMessageFilter, IncomingCalls_AreServedAtAnyTime)
{
    const BusyMessageFilter filter;
    const auto registered = current();
    ASSERT_TRUE(registered);
    for (const DWORD kind : {CALLTYPE_TOPLEVEL, CALLTYPE_NESTED, CALLTYPE_ASYNC, CALLTYPE_TOPLEVEL_CALLPENDING,
                             CALLTYPE_ASYNC_CALLPENDING})
        EXPECT_EQ(registered->HandleInComingCall(kind, nullptr, 0, nullptr), DWORD{SERVERCALL_ISHANDLED});
}

TEST(BusyMessageFilter, ProgramThatFailsWithAMessageDuringACall_IsGivenNoOtherAnswer)
{
    const BusyMessageFilter filter([] { throw std::bad_alloc(); });
    const auto registered = current();
    ASSERT_TRUE(registered);
    EXPECT_EQ(registered->MessagePending(nullptr, 10'000, PENDINGTYPE_TOPLEVEL), DWORD{PENDINGMSG_WAITNOPROCESS});
}

TEST(BusyMessageFilter, MessageDuringACall_IsOfferedToTheProgram_AndOtherwiseLeftInTheQueue)
{
    int offered = 0;
    const BusyMessageFilter filter([&] { ++offered; });
    const auto registered = current();
    ASSERT_TRUE(registered);
    EXPECT_EQ(registered->MessagePending(nullptr, 10'000, PENDINGTYPE_TOPLEVEL), DWORD{PENDINGMSG_WAITNOPROCESS});
    EXPECT_EQ(offered, 1);
}

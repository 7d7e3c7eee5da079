// The watch over the call that is out: what each look at it leads to, and the thread that looks.
#include "shell/call_watch.h"

#include "automation/outgoing_call.h"
#include "support/process.h"

#include <gtest/gtest.h>

namespace hublink {

using automation::OutgoingCall;
using support::eventually;

namespace {

constexpr DWORD neverLong = 60'000'000; // milliseconds
constexpr DWORD soonLong = 60;

class Watch : public testing::Test {
protected:
    // Its thread never looks: the test does.
    static constexpr CallWatch::Times withoutLooks(DWORD longCallAfter) { return {longCallAfter, INFINITE}; }
    static constexpr CallWatch::Times everyMillisecond{0, 1};

    void start(CallWatch& watch)
    {
        watch.start([this] { ++reported; }, [this] { ++ended; });
    }

    std::atomic<int> reported{0};
    std::atomic<int> ended{0};
};

}

TEST_F(Watch, NoCallOut_ReportsNothing_EvenWhenAStopIsRequested)
{
    CallWatch watch(withoutLooks(0));
    start(watch);
    watch.noteStopRequest();
    EXPECT_FALSE(watch.callIsLong());
    EXPECT_TRUE(watch.look());
    EXPECT_EQ(reported, 0);
    EXPECT_EQ(ended, 0);
}

TEST_F(Watch, LongCall_IsReportedAtEachLook_AndEndsNothing)
{
    CallWatch watch(withoutLooks(0));
    start(watch);
    const OutgoingCall call;
    for (int looks = 0; looks < 3; ++looks) EXPECT_TRUE(watch.look());
    EXPECT_TRUE(watch.callIsLong());
    EXPECT_EQ(reported, 3);
    EXPECT_EQ(ended, 0);
}

TEST_F(Watch, CallsInsideACall_CountFromTheOutermost)
{
    const CallWatch watch(withoutLooks(soonLong));
    const OutgoingCall outermost;
    EXPECT_TRUE(eventually([&] {
        const OutgoingCall inner;
        return watch.callIsLong();
    }));
}

TEST_F(Watch, CallAfterALongOne_IsANewOne)
{
    const CallWatch watch(withoutLooks(soonLong));
    {
        const OutgoingCall call;
        ASSERT_TRUE(eventually([&] { return watch.callIsLong(); }));
    }
    // On a busy machine a new call may be long before it is looked at, but not every time.
    EXPECT_TRUE(eventually([&] {
        const OutgoingCall next;
        return !watch.callIsLong();
    }));
}

TEST_F(Watch, CallThatIsNotLongYet_ReportsNothing_WhateverIsRequested)
{
    CallWatch watch(withoutLooks(neverLong));
    start(watch);
    watch.noteStopRequest();
    const OutgoingCall call;
    EXPECT_TRUE(watch.look());
    EXPECT_EQ(reported, 0);
    EXPECT_EQ(ended, 0);
}

TEST_F(Watch, StopRequestedInsideALongCall_EndsTheProgram_AndTheWatch)
{
    CallWatch watch(withoutLooks(0));
    start(watch);
    const OutgoingCall call;
    EXPECT_TRUE(watch.look());
    watch.noteStopRequest();
    EXPECT_FALSE(watch.look()) << "nothing is left to watch";
    EXPECT_EQ(reported, 1);
    EXPECT_EQ(ended, 1);
}

TEST_F(Watch, StopRequestedBeforeTheCall_EndsTheProgramWhenTheCallIsLong)
{
    CallWatch watch(withoutLooks(0));
    start(watch);
    watch.noteStopRequest();
    EXPECT_TRUE(watch.look());
    EXPECT_EQ(ended, 0);
    const OutgoingCall call;
    EXPECT_FALSE(watch.look());
    EXPECT_EQ(ended, 1);
    EXPECT_EQ(reported, 0) << "there is nobody left to ask";
}

TEST_F(Watch, StopRequestedAgainAndAgain_CountsFromTheFirstRequest)
{
    CallWatch watch(withoutLooks(soonLong));
    start(watch);
    const OutgoingCall call;
    EXPECT_TRUE(eventually([&] {
        watch.noteStopRequest();
        watch.look();
        return ended > 0;
    }));
}

TEST_F(Watch, CallOfAnotherThread_IsNotWatched)
{
    struct Elsewhere {
        static DWORD WINAPI call(void* elsewhere)
        {
            const auto* const self = static_cast<const Elsewhere*>(elsewhere);
            const OutgoingCall call;
            SetEvent(self->isOut.get());
            WaitForSingleObject(self->mayEnd.get(), INFINITE);
            return 0;
        }
        const automation::Handle isOut{CreateEventW(nullptr, TRUE, FALSE, nullptr)};
        const automation::Handle mayEnd{CreateEventW(nullptr, TRUE, FALSE, nullptr)};
    } elsewhere;
    CallWatch watch(withoutLooks(0));
    start(watch);
    const automation::Handle thread(CreateThread(nullptr, 0, Elsewhere::call, &elsewhere, 0, nullptr));
    WaitForSingleObject(elsewhere.isOut.get(), INFINITE);
    EXPECT_TRUE(watch.look());
    EXPECT_EQ(reported, 0);
    SetEvent(elsewhere.mayEnd.get());
    WaitForSingleObject(thread.get(), INFINITE);
}

TEST_F(Watch, ItsThread_LooksAgainAndAgain_UntilTheProgramIsEnded)
{
    CallWatch watch(everyMillisecond);
    start(watch);
    const OutgoingCall call;
    ASSERT_TRUE(eventually([&] { return reported >= 3; }));
    EXPECT_EQ(ended, 0);
    watch.noteStopRequest();
    EXPECT_TRUE(eventually([&] { return ended == 1; }));
}

TEST_F(Watch, EndOfTheWatchInsideALook_WaitsForTheLook)
{
    const automation::Handle neverSet(CreateEventW(nullptr, TRUE, FALSE, nullptr));
    std::atomic<bool> isLooking{false};
    const OutgoingCall call;
    {
        CallWatch watch(everyMillisecond);
        const auto lookForAWhile = [&] {
            isLooking = true;
            WaitForSingleObject(neverSet.get(), 50);
            isLooking = false;
        };
        watch.start(lookForAWhile, [] {});
        ASSERT_TRUE(eventually([&] { return isLooking.load(); }));
    }
    EXPECT_FALSE(isLooking);
}

}

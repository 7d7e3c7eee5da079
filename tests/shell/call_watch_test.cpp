// The watch over the call that is out, with times of its own.
#include "shell/call_watch.h"

#include "automation/outgoing_call.h"

#include <gtest/gtest.h>

namespace hublink {

using automation::OutgoingCall;

namespace {

class Watch : public testing::Test {
protected:
    static constexpr CallWatch::Times soon{60, 5}; // milliseconds
    static constexpr CallWatch::Times never{60'000'000, 5};

    void start(CallWatch& watch)
    {
        watch.start([this] { ++told; }, [this] { ++ended; });
    }

    // Time for many looks.
    static void idle() { Sleep(200); }

    template <class Condition>
    static void waitUntil(Condition done)
    {
        while (!done()) Sleep(5);
    }

    std::atomic<int> told{0};
    std::atomic<int> ended{0};
};

}

TEST_F(Watch, NoCallOut_SaysNothing_EvenWhenAStopIsAsked)
{
    CallWatch watch(soon);
    start(watch);
    watch.stopIsAsked();
    idle();
    EXPECT_FALSE(watch.callIsLong());
    EXPECT_EQ(told, 0);
    EXPECT_EQ(ended, 0);
}

TEST_F(Watch, LongCall_IsToldOfAgainAndAgain_AndEndsNothing)
{
    CallWatch watch(soon);
    start(watch);
    const OutgoingCall call;
    waitUntil([&] { return told >= 3; });
    EXPECT_TRUE(watch.callIsLong());
    EXPECT_EQ(ended, 0);
}

TEST_F(Watch, CallsInsideACall_CountFromTheOutermost)
{
    CallWatch watch(soon);
    start(watch);
    const OutgoingCall outermost;
    waitUntil([&] {
        const OutgoingCall inner;
        return told > 0;
    });
    EXPECT_TRUE(watch.callIsLong());
}

TEST_F(Watch, CallsOneAfterTheOther_AreEachNew)
{
    CallWatch watch({5'000, 5});
    start(watch);
    for (int calls = 0; calls < 20; ++calls) {
        const OutgoingCall call;
        Sleep(10);
    }
    EXPECT_FALSE(watch.callIsLong());
    EXPECT_EQ(told, 0);
}

TEST_F(Watch, CallThatIsNotLongYet_SaysNothing_WhateverIsAsked)
{
    CallWatch watch(never);
    start(watch);
    watch.stopIsAsked();
    const OutgoingCall call;
    idle();
    EXPECT_EQ(told, 0);
    EXPECT_EQ(ended, 0);
}

TEST_F(Watch, StopAskedInsideALongCall_EndsTheProgram_Once)
{
    CallWatch watch(soon);
    start(watch);
    const OutgoingCall call;
    waitUntil([&] { return told > 0; });
    EXPECT_EQ(ended, 0);
    watch.stopIsAsked();
    waitUntil([&] { return ended > 0; });
    const int before = told;
    idle();
    EXPECT_EQ(ended, 1);
    EXPECT_EQ(told, before) << "nothing is left to watch";
}

TEST_F(Watch, StopAskedLongBeforeTheCall_EndsTheProgramWhenTheCallIsLong)
{
    CallWatch watch(soon);
    start(watch);
    watch.stopIsAsked();
    idle();
    EXPECT_EQ(ended, 0);
    const OutgoingCall call;
    waitUntil([&] { return ended > 0; });
    EXPECT_EQ(told, 0) << "there is nobody left to ask";
}

TEST_F(Watch, StopAskedAgainAndAgain_CountsFromTheFirst)
{
    CallWatch watch(soon);
    start(watch);
    const OutgoingCall call;
    waitUntil([&] {
        watch.stopIsAsked();
        return ended > 0;
    });
}

TEST_F(Watch, CallOfAnotherThread_IsNotWatched)
{
    struct Elsewhere {
        static DWORD WINAPI call(void*)
        {
            const OutgoingCall call;
            idle();
            return 0;
        }
    };
    CallWatch watch(soon);
    start(watch);
    const HANDLE thread = CreateThread(nullptr, 0, Elsewhere::call, nullptr, 0, nullptr);
    WaitForSingleObject(thread, INFINITE);
    CloseHandle(thread);
    EXPECT_EQ(told, 0);
}

TEST_F(Watch, EndOfTheWatchInsideACall_LeavesNothingBehind)
{
    const OutgoingCall call;
    {
        CallWatch watch(soon);
        start(watch);
        waitUntil([&] { return told > 0; });
    }
    const int before = told;
    idle();
    EXPECT_EQ(told, before);
}

}

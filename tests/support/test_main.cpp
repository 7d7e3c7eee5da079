// The main program of every test program: COM for the thread, a check after
// each test that nothing was left behind, and a watchdog, since a test that
// hangs would otherwise name nobody.
#include "automation/apartment.h"
#include "automation/server/dispatch.h"
#include "automation/subscription.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <string>

namespace {

constexpr int hungTest = 97;
constexpr DWORD timeout = 110'000; // milliseconds for one test

class LeakCheck : public testing::EmptyTestEventListener {
    void OnTestEnd(const testing::TestInfo&) override
    {
        EXPECT_EQ(automation::server::Dispatch::liveCount(), 0) << "objects left alive by the test";
        EXPECT_EQ(automation::liveEventSinks(), 0) << "event sinks left alive by the test";
    }
};

class Watchdog : public testing::EmptyTestEventListener {
    void OnTestStart(const testing::TestInfo& test) override
    {
        name_ = std::string(test.test_suite_name()) + "." + test.name();
        done_ = CreateEventW(nullptr, TRUE, FALSE, nullptr);
        thread_ = CreateThread(nullptr, 0, watch, this, 0, nullptr);
    }

    void OnTestEnd(const testing::TestInfo&) override
    {
        SetEvent(done_);
        WaitForSingleObject(thread_, INFINITE);
        CloseHandle(thread_);
        CloseHandle(done_);
    }

    static DWORD WINAPI watch(void* self)
    {
        const auto* watchdog = static_cast<Watchdog*>(self);
        if (WaitForSingleObject(watchdog->done_, timeout) == WAIT_OBJECT_0) return 0;
        std::printf("%s hangs: ended by the watchdog\n", watchdog->name_.c_str());
        std::fflush(stdout);
        TerminateProcess(GetCurrentProcess(), hungTest);
        return 0;
    }

    std::string name_;
    HANDLE done_ = nullptr;
    HANDLE thread_ = nullptr;
};

}

int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
    const automation::Apartment apartment;
    auto& listeners = testing::UnitTest::GetInstance()->listeners();
    listeners.Append(new LeakCheck);
    listeners.Append(new Watchdog);
    return RUN_ALL_TESTS();
}

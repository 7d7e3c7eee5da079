#include "desk/common/control_pipe.h"

#include "automation/owners.h"

#include <gtest/gtest.h>

#include <atomic>
#include <stdexcept>
#include <string>

namespace {

std::string failureOf(std::wstring_view partner, std::wstring_view request, DWORD timeout)
{
    try {
        desk::ask(partner, request, timeout);
    } catch (const std::runtime_error& error) {
        return error.what();
    }
    return "no failure";
}

}

TEST(ControlPipe, TextsOfAllSizes_ComeBackWhole)
{
    const desk::ControlPipe pipe(L"echo", [](const std::wstring& request) { return request.substr(1); }, [] {});
    for (const std::size_t size : {0u, 1u, 65535u, 65536u, 65537u, 1048575u, 1048576u, 5'000'000u}) {
        const std::wstring text(size, L'\x00E9');
        EXPECT_EQ(desk::ask(L"echo", L">" + text).size(), size);
    }
    EXPECT_EQ(desk::ask(L"echo", L">\x20AC \n b"), L"\x20AC \n b");
}

TEST(ControlPipe, ManyRequests_EachGetsItsOwnAnswerThenTheNotice)
{
    std::atomic<int> answered = 0;
    {
        const desk::ControlPipe pipe(L"echo", [](const std::wstring& request) { return request; }, [&] { ++answered; });
        for (int request = 0; request < 50; ++request)
            ASSERT_EQ(desk::ask(L"echo", std::to_wstring(request)), std::to_wstring(request));
    }
    EXPECT_EQ(answered, 50);
}

TEST(Ask, NobodyThere_FailsAfterItsTimeNamingThePartner)
{
    const DWORD start = GetTickCount();
    EXPECT_EQ(failureOf(L"nobody", L"ping", 200), "the partner \"nobody\" is not running");
    EXPECT_GE(GetTickCount() - start, 190u);
}

TEST(Ask, PartnerStartsLate_IsFound)
{
    struct Late {
        static DWORD WINAPI run(void* stop)
        {
            Sleep(300);
            const desk::ControlPipe pipe(L"late", [](const std::wstring&) { return L"here"; }, [] {});
            WaitForSingleObject(stop, 5000);
            return 0;
        }
    };
    const automation::Handle stop(CreateEventW(nullptr, TRUE, FALSE, nullptr));
    const automation::Handle thread(CreateThread(nullptr, 0, Late::run, stop.get(), 0, nullptr));
    EXPECT_EQ(desk::ask(L"late", L"ping"), L"here");
    SetEvent(stop.get());
    WaitForSingleObject(thread.get(), INFINITE);
}

TEST(Ask, PartnerThatDoesNotAnswer_FailsInTime)
{
    const automation::Handle go(CreateEventW(nullptr, TRUE, FALSE, nullptr));
    {
        const desk::ControlPipe pipe(
            L"slow",
            [&](const std::wstring&) {
                WaitForSingleObject(go.get(), 5000);
                return L"late";
            },
            [] {});
        EXPECT_EQ(failureOf(L"slow", L"ping", 300), "the partner \"slow\" did not answer in time");
        SetEvent(go.get());
        EXPECT_EQ(desk::ask(L"slow", L"again"), L"late") << "the pipe serves on after a client that left";
    }
}

#include "desk/bench/long_run.h"

#include "desk/bench/host.h"

#include <cwchar>
#include <stdexcept>

namespace desk::bench {

namespace {

using player::Desk;
using player::waitFor;
using player::waitUntil;

constexpr DWORD patience = 60'000; // milliseconds

// The lowest free place in a process's handle table, found by lending it a
// handle for a moment. It rises with every handle that is not closed again.
DWORD lowestFreeHandle(HANDLE process)
{
    HANDLE lent = nullptr;
    if (!DuplicateHandle(GetCurrentProcess(), GetCurrentProcess(), process, &lent, SYNCHRONIZE, FALSE, 0))
        throw std::runtime_error("no handle can be lent to Hublink");
    DuplicateHandle(process, lent, nullptr, nullptr, 0, FALSE, DUPLICATE_CLOSE_SOURCE);
    return static_cast<DWORD>(reinterpret_cast<ULONG_PTR>(lent));
}

// Some systems do not count these for another process and answer 0.
void compareGui(Report& report, const wchar_t* what, DWORD before, DWORD after)
{
    if (before == 0 && after == 0) return report.tell(std::wstring(what) + L" are not counted on this system");
    report.target(after <= before, std::wstring(what) + L": " + std::to_wstring(before) + L" before, " +
                                         std::to_wstring(after) + L" after");
}

// Runs `work` and compares what Hublink holds before and after it.
template <class Work>
void holdingNothing(Desk& desk, Report& report, Work work)
{
    const HANDLE hublink = desk.hublinkProcess().handle();
    const DWORD handles = lowestFreeHandle(hublink);
    const DWORD gdi = GetGuiResources(hublink, GR_GDIOBJECTS);
    const DWORD user = GetGuiResources(hublink, GR_USEROBJECTS);
    const long memory = privateMemory();
    work();
    report.tell(L"private memory: " + std::to_wstring(memory) + L" KB before, " + std::to_wstring(privateMemory()) +
                L" KB after");
    const DWORD handlesAfter = lowestFreeHandle(hublink);
    // One more or less is in use at any moment.
    report.target(handlesAfter <= handles + 64, L"lowest free handle: " + std::to_wstring(handles) + L" before, " +
                                                      std::to_wstring(handlesAfter) + L" after");
    compareGui(report, L"GDI objects", gdi, GetGuiResources(hublink, GR_GDIOBJECTS));
    compareGui(report, L"USER objects", user, GetGuiResources(hublink, GR_USEROBJECTS));
}

// Waits until the form's window answers: everything posted before is done.
void settle()
{
    DWORD_PTR result = 0;
    SendMessageTimeoutW(FindWindowW(L"Hublink", nullptr), WM_NULL, 0, 0, SMTO_NORMAL, patience, &result);
}

unsigned long displays(Desk& desk)
{
    const std::wstring totals = desk.outlook(L"calls");
    const std::size_t at = totals.find(L" ContactItem.Display method");
    if (at == std::wstring::npos) return 0;
    const std::size_t line = totals.rfind(L'\n', at);
    return std::wcstoul(totals.c_str() + (line == std::wstring::npos ? 0 : line + 1), nullptr, 10);
}

void idleMinute(Report& report)
{
    report.section(L"An idle minute, all partners up.");
    const long before = processorTime();
    waitFor(60'000);
    report.tell(L"processor time used: " + std::to_wstring(processorTime() - before) + L" ms");
}

void ticks(Desk& desk, Report& report, int count)
{
    report.section(std::to_wstring(count) + L" supervision ticks.");
    holdingNothing(desk, report, [&] {
        for (int tick = 0; tick < count; ++tick) {
            desk.tick();
            if (tick % 20 == 19) settle();
        }
        settle();
    });
}

void calls(Desk& desk, Report& report, int count)
{
    constexpr int block = 50;
    report.section(std::to_wstring(count) + L" incoming calls from a known contact.");
    holdingNothing(desk, report, [&] {
        for (int done = 0; done < count; done += block) {
            desk.outlook(L"close-windows");
            desk.outlook(L"clear");
            desk.softphone(L"clear");
            for (int call = 0; call < block; ++call) desk.softphone(L"call Number=4711 Incoming=true");
            if (!waitUntil([&] { return displays(desk) == block; }, patience))
                throw std::runtime_error("calls are not served any more");
        }
        settle();
    });
}

}

void measureLongRun(Desk& desk, Report& report)
{
    desk.startSoftphone();
    desk.startOutlook("[contact]\nFirstName=Claire\nLastName=Petit\nBusinessTelephoneNumber=4711\n");
    desk.startHublink();
    if (!waitUntil([&] { return desk.logHolds(L"Connector Initialization  Ok"); }, patience))
        throw std::runtime_error("Hublink does not start");
    ticks(desk, report, 100); // the first ones allocate what stays
    ticks(desk, report, 2000);
    calls(desk, report, 5000);
    calls(desk, report, 5000); // what the first ones allocated has to be enough
    idleMinute(report);
}

}

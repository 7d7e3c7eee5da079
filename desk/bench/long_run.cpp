#include "desk/bench/long_run.h"

#include "automation/owners.h"
#include "desk/bench/host.h"

#include <algorithm>
#include <cwchar>
#include <stdexcept>

namespace desk::bench {

namespace {

using player::Desk;
using player::waitFor;
using player::waitUntil;

constexpr DWORD timeout = 60'000; // milliseconds

// What is allowed to a program that holds nothing: what the system itself takes and
// gives back at any moment.
constexpr DWORD handleStep = 4;     // from one place of the table to the next: one handle more
constexpr long maxGrowth = 256;     // KB, after thousands of ticks or calls
constexpr long maxIdleTime = 200;   // milliseconds of processor time a minute

// The lowest free place in a process's handle table, found by lending it a
// handle for a moment. It is taken back, not closed there: Wine closes nothing
// in another process.
DWORD placeOfALentHandle(HANDLE process)
{
    const HANDLE self = GetCurrentProcess();
    HANDLE lent = nullptr;
    HANDLE back = nullptr;
    if (!DuplicateHandle(self, self, process, &lent, SYNCHRONIZE, FALSE, 0) ||
        !DuplicateHandle(process, lent, self, &back, 0, FALSE, DUPLICATE_CLOSE_SOURCE | DUPLICATE_SAME_ACCESS))
        throw std::runtime_error("no handle can be lent to Hublink");
    const automation::Handle ours(back);
    return static_cast<DWORD>(reinterpret_cast<ULONG_PTR>(lent));
}

// It rises with every handle that is not closed again. The least of some looks:
// what is in use for a moment only is no loss.
DWORD lowestFreeHandle(HANDLE process)
{
    DWORD least = MAXDWORD;
    for (int look = 0; look < 50; ++look, waitFor(20)) least = std::min(least, placeOfALentHandle(process));
    return least;
}

// Some systems do not count these for another process and answer 0.
void compareGui(Report& report, const wchar_t* what, DWORD before, DWORD after)
{
    if (before == 0 && after == 0) {
        report.remark(std::wstring(what) + L" are not counted on this system");
        return;
    }
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
    const long memoryAfter = privateMemory();
    report.target(memoryAfter - memory <= maxGrowth, L"private memory: " + std::to_wstring(memory) + L" KB before, " +
                                                         std::to_wstring(memoryAfter) + L" KB after; at most " +
                                                         std::to_wstring(maxGrowth) + L" KB more");
    const DWORD handlesAfter = lowestFreeHandle(hublink);
    report.target(handlesAfter <= handles + handleStep, L"lowest free handle: " + std::to_wstring(handles) +
                                                            L" before, " + std::to_wstring(handlesAfter) +
                                                            L" after; at most one more");
    compareGui(report, L"GDI objects", gdi, GetGuiResources(hublink, GR_GDIOBJECTS));
    compareGui(report, L"USER objects", user, GetGuiResources(hublink, GR_USEROBJECTS));
}

// Waits until the form's window answers: everything posted before is done.
void settle()
{
    DWORD_PTR result = 0;
    SendMessageTimeoutW(FindWindowW(L"Hublink", nullptr), WM_NULL, 0, 0, SMTO_NORMAL, timeout, &result);
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
    const long used = processorTime() - before;
    report.target(used <= maxIdleTime, L"processor time used: " + std::to_wstring(used) + L" ms; at most " +
                                           std::to_wstring(maxIdleTime) + L" ms");
}

void tickOften(Desk& desk, int count)
{
    for (int tick = 0; tick < count; ++tick) {
        desk.tick();
        if (tick % 20 == 19) settle();
    }
    settle();
}

// From a known contact.
void callOften(Desk& desk, int count)
{
    constexpr int block = 50;
    for (int done = 0; done < count; done += block) {
        desk.outlook(L"close-windows");
        desk.outlook(L"clear");
        desk.softphone(L"clear");
        for (int call = 0; call < block; ++call) desk.softphone(L"call Number=4711 Incoming=true");
        if (!waitUntil([&] { return displays(desk) == block; }, timeout))
            throw std::runtime_error("calls are not served any more");
    }
    settle();
}

// The first time, before it is measured, makes what stays.
void measureTicks(Desk& desk, Report& report, int count)
{
    report.section(std::to_wstring(count) + L" supervision ticks.");
    tickOften(desk, 100);
    holdingNothing(desk, report, [&] { tickOften(desk, count); });
}

void measureCalls(Desk& desk, Report& report, int count)
{
    report.section(std::to_wstring(count) + L" incoming calls from a known contact, once as many have come.");
    callOften(desk, count);
    holdingNothing(desk, report, [&] { callOften(desk, count); });
}

}

void measureLongRun(Desk& desk, Report& report)
{
    desk.startSoftphone();
    desk.startOutlook("[contact]\nFirstName=Claire\nLastName=Petit\nBusinessTelephoneNumber=4711\n");
    desk.startHublink();
    if (!waitUntil([&] { return desk.logHolds(L"Connector Initialization  Ok"); }, timeout))
        throw std::runtime_error("Hublink does not start");
    measureTicks(desk, report, 2000);
    measureCalls(desk, report, 5000);
    idleMinute(report);
}

}

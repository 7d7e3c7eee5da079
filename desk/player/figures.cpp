#include "desk/player/figures.h"

#include "desk/common/text.h"

#include <cstdint>
#include <cwchar>
#include <stdexcept>

namespace desk::player {

namespace {

constexpr DWORD patience = 60'000; // milliseconds

// Processor time used so far, in 100 ns.
std::uint64_t processorTime(HANDLE process)
{
    FILETIME creation, exit, kernel, user;
    GetProcessTimes(process, &creation, &exit, &kernel, &user);
    const auto number = [](FILETIME time) { return std::uint64_t{time.dwHighDateTime} << 32 | time.dwLowDateTime; };
    return number(kernel) + number(user);
}

struct Holdings {
    DWORD handles = 0;
    DWORD gdi = 0;
    DWORD user = 0;
};

Holdings holdingsOf(HANDLE process)
{
    Holdings held;
    GetProcessHandleCount(process, &held.handles);
    held.gdi = GetGuiResources(process, GR_GDIOBJECTS);
    held.user = GetGuiResources(process, GR_USEROBJECTS);
    return held;
}

void compare(Narrator& narrator, const wchar_t* what, DWORD before, DWORD after)
{
    narrator.expect(after <= before, std::wstring(what) + L": " + std::to_wstring(before) + L" before, " +
                                         std::to_wstring(after) + L" after");
}

void compare(Narrator& narrator, const Holdings& before, const Holdings& after)
{
    compare(narrator, L"handles", before.handles, after.handles);
    compare(narrator, L"GDI objects", before.gdi, after.gdi);
    compare(narrator, L"USER objects", before.user, after.user);
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

void idleMinute(Desk& desk, Narrator& narrator)
{
    narrator.step(L"An idle minute, all partners up.");
    const HANDLE hublink = desk.hublinkProcess().handle();
    const std::uint64_t before = processorTime(hublink);
    waitFor(60'000);
    const std::uint64_t used = (processorTime(hublink) - before) / 10'000;
    narrator.expect(used < 20, L"processor time: " + std::to_wstring(used) + L" ms");
}

void ticks(Desk& desk, Narrator& narrator, int count)
{
    narrator.step(std::to_wstring(count) + L" supervision ticks.");
    const Holdings before = holdingsOf(desk.hublinkProcess().handle());
    narrator.tell(L"memory?");
    for (int tick = 0; tick < count; ++tick) {
        desk.tick();
        if (tick % 20 == 19) settle();
    }
    settle();
    narrator.tell(L"memory?");
    compare(narrator, before, holdingsOf(desk.hublinkProcess().handle()));
}

void calls(Desk& desk, Narrator& narrator, int count)
{
    constexpr int block = 50;
    narrator.step(std::to_wstring(count) + L" incoming calls from a known contact.");
    const Holdings before = holdingsOf(desk.hublinkProcess().handle());
    narrator.tell(L"memory?");
    for (int done = 0; done < count; done += block) {
        desk.outlook(L"close-windows");
        desk.outlook(L"clear");
        desk.softphone(L"clear");
        for (int call = 0; call < block; ++call) desk.softphone(L"call Number=4711 Incoming=true");
        if (!waitUntil([&] { return displays(desk) == block; }, patience))
            throw std::runtime_error("calls are not served any more");
    }
    settle();
    narrator.tell(L"memory?");
    compare(narrator, before, holdingsOf(desk.hublinkProcess().handle()));
}

}

void measureFigures(Desk& desk, Narrator& narrator)
{
    desk.startSoftphone();
    desk.startOutlook("[contact]\nFirstName=Claire\nLastName=Petit\nBusinessTelephoneNumber=4711\n");
    desk.startHublink();
    if (!waitUntil([&] { return desk.logHolds(L"Connector Initialization  Ok"); }, patience))
        throw std::runtime_error("Hublink does not start");
    ticks(desk, narrator, 100); // the first ones allocate what stays
    calls(desk, narrator, 200);
    ticks(desk, narrator, 2000);
    calls(desk, narrator, 5000);
    idleMinute(desk, narrator);
}

}

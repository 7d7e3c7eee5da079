#include "desk/bench/outlook_calls.h"

#include "automation/text.h"
#include "desk/common/text.h"

#include <algorithm>
#include <cmath>
#include <stdexcept>

namespace desk::bench {

namespace {

constexpr int scriptedCounts[] = {10, 100}; // middle and end have their numbers in the same fields everywhere
constexpr int walkedCounts[] = {100, 1'000};
constexpr const wchar_t* walked = L"Hublink without tables";

Cost costOf(const OutlookCall& call, const wchar_t* client, int contacts, const Run& run)
{
    return {call.name, client, contacts, static_cast<double>(run.counts.total()), run.milliseconds};
}

Cost costOf(const OutlookCall& call, const wchar_t* client, int contacts, const ReckonedWork& work)
{
    return {call.name, client, contacts, work.callsOver(contacts), work.millisecondsOver(contacts), Known::reckoned};
}

std::wstring shown(double roundTrips)
{
    return std::to_wstring(std::lround(roundTrips));
}

}

OutlookCalls::OutlookCalls(player::Desk& desk, Report& report)
    : desk_(desk), report_(report), outlook_(desk), runner_(desk, outlook_, report)
{
    runner_.startPartners();
}

void OutlookCalls::load(const OutlookCall& call, int contacts)
{
    desk_.outlook(L"close-windows");
    outlook_.load(call.contacts(contacts));
}

Run OutlookCalls::hublink(const OutlookCall& call, int contacts)
{
    load(call, contacts);
    return served(call);
}

Run OutlookCalls::hublinkWithoutTables(const OutlookCall& call, int contacts)
{
    load(call, contacts);
    desk_.outlook(L"old on");
    const Run run = served(call);
    desk_.outlook(L"old off");
    return run;
}

Run OutlookCalls::served(const OutlookCall& call)
{
    runner_.configure(true);
    desk_.setIni("outlook", "ReplacePhoneNumber", call.numbers == Numbers::rewritten ? "true" : "false");
    runner_.measureStart();
    const Run run = runner_.measureCall(call.ring);
    expectWindows(call);
    runner_.stopHublink();
    return run;
}

Run OutlookCalls::script(const OutlookCall& call, int contacts)
{
    load(call, contacts);
    const Run run = runner_.script(call.script + (call.numbers == Numbers::kept ? L" kept" : L""));
    expectWindows(call);
    return run;
}

void OutlookCalls::expectWindows(const OutlookCall& call)
{
    std::vector<std::wstring> titles;
    for (const std::wstring& line : linesOf(desk_.outlook(L"windows")))
        titles.push_back(line.substr(0, line.find(L'\t')));
    std::vector<std::wstring> expected = call.titles;
    std::sort(titles.begin(), titles.end());
    std::sort(expected.begin(), expected.end());
    if (titles != expected) throw std::runtime_error("not the expected windows: " + automation::toAnsi(call.name));
}

Run OutlookCalls::compare(const OutlookCall& call)
{
    report_.remark(call.name);
    const Run few = script(call, scriptedCounts[0]);
    const Run more = script(call, scriptedCounts[1]);
    report_.remark(L"contacts     Hublink  in Outlook        time      script        time   ratio");
    Run last;
    for (const int contacts : contactCounts) {
        last = hublink(call, contacts);
        reportFigures(costOf(call, L"Hublink", contacts, last), last.inGroupware,
                      scriptsCost(call, contacts, few, more));
    }
    reportNeeded(call);
    for (const std::wstring& line : table({{L"over 10,000", last.counts}})) report_.remark(line);
    return last;
}

// Where it walks it would take hours; else it is run.
Cost OutlookCalls::scriptsCost(const OutlookCall& call, int contacts, const Run& few, const Run& more)
{
    if (contacts == scriptedCounts[1]) return costOf(call, L"script", contacts, more);
    if (few.counts.total() == more.counts.total()) return costOf(call, L"script", contacts, script(call, contacts));
    return costOf(call, L"script", contacts, ReckonedWork(scriptedCounts[0], few, scriptedCounts[1], more));
}

void OutlookCalls::reportFigures(const Cost& hublink, unsigned long inOutlook, const Cost& script)
{
    report_.remark(aligned(std::to_wstring(hublink.contacts), 8) + aligned(shown(hublink.roundTrips), 12) +
                   aligned(std::to_wstring(inOutlook), 12) + aligned(seconds(hublink.milliseconds), 12) +
                   aligned(shown(script.roundTrips), 12) + aligned(seconds(script.milliseconds), 12) +
                   aligned(decimal(hublink.roundTrips / script.roundTrips), 8));
    report_.cost(hublink);
    report_.cost(script);
}

void OutlookCalls::reportNeeded(const OutlookCall& call)
{
    report_.remark(L"the calls that its steps need:");
    for (const NeededCalls& step : call.needed)
        report_.remark(aligned(std::to_wstring(step.count), 8) + L"  " + step.what);
    report_.needed(call.name, sumOf(call.needed));
}

void OutlookCalls::reportWithoutTables(const OutlookCall& call)
{
    report_.remark(call.name + L", in an Outlook without tables");
    const Run few = hublinkWithoutTables(call, walkedCounts[0]);
    const Run more = hublinkWithoutTables(call, walkedCounts[1]);
    const ReckonedWork walk(walkedCounts[0], few, walkedCounts[1], more);
    const int most = contactCounts[2];
    report_.cost(costOf(call, walked, walkedCounts[0], few));
    report_.cost(costOf(call, walked, walkedCounts[1], more));
    report_.cost(costOf(call, walked, most, walk));
    report_.remark(L"over " + std::to_wstring(walkedCounts[1]) + L" contacts " + std::to_wstring(more.counts.total()) +
                   L" round trips, " + seconds(more.milliseconds) + L"; over " + std::to_wstring(most) +
                   L" they would be " + shown(walk.callsOver(most)) + L", " + seconds(walk.millisecondsOver(most)));
}

}

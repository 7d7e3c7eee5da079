#include "desk/bench/memory.h"

#include "automation/text.h"
#include "desk/bench/host.h"
#include "desk/bench/run.h"

#include <algorithm>
#include <climits>
#include <stdexcept>

namespace desk::bench {

namespace {

constexpr int entries = 20;
constexpr int few = 200;
constexpr int many = 2'000;
constexpr int contactsOfALargeFolder = 100'000;
constexpr long maxWhileReading = 2'048; // KB above what it had before the call
constexpr long tolerance = 128; // KB: what two runs of the same differ by

// The least of three runs: now and then the system takes about 1,000 KB more for
// itself, after few items as after many.
long memoryAfter(Runner& runner, int items)
{
    long least = LONG_MAX;
    for (int run = 0; run < 3; ++run) {
        runner.give(synchronisationRecords(entries, items));
        runner.measureStart();
        least = std::min(least, privateMemory());
        runner.stopHublink();
    }
    return least;
}

// Whose number, written with dots, the table of all contacts tells.
void measureReading(player::Desk& desk, Runner& runner, Report& report)
{
    const People people = contacts(contactsOfALargeFolder);
    std::string number = people[people.size() - 3].number;
    std::erase_if(number, [](char letter) { return letter == '.' || letter == ' '; });
    runner.give({people, "", 0});
    runner.measureStart();
    const long before = residentMemory();
    const Run run = runner.measureCall(L"Number=" + automation::toWide(number) + L" Incoming=true");
    const long most = peakResidentMemory();
    runner.stopHublink();
    if (desk.outlook(L"windows").empty()) throw std::runtime_error("the caller is not shown");
    report.target(most - before <= maxWhileReading,
                  L"a known caller over " + std::to_wstring(contactsOfALargeFolder) + L" contacts: " +
                      std::to_wstring(run.counts.total()) + L" round trips, " + seconds(run.milliseconds) +
                      L", memory in use " + std::to_wstring(before) + L" KB before, at most " + std::to_wstring(most) +
                      L" KB; at most " + std::to_wstring(maxWhileReading) + L" KB more");
}

}

void measureMemory(player::Desk& desk, Groupware& groupware, Report& report)
{
    report.section(std::wstring(groupware.name()) + L": memory of hublink.exe after a first synchronisation");
    Runner runner(desk, groupware, report);
    runner.startPartners();
    runner.configure(false);
    measureReading(desk, runner, report);
    const long afterFew = memoryAfter(runner, few);
    const long afterMany = memoryAfter(runner, many);
    report.target(afterMany - afterFew <= tolerance,
                  L"private memory after " + std::to_wstring(few) + L" history items " + std::to_wstring(afterFew) +
                      L" KB, after " + std::to_wstring(many) + L" items " + std::to_wstring(afterMany) +
                      L" KB; at most " + std::to_wstring(tolerance) + L" KB more");
}

}

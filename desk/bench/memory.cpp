#include "desk/bench/memory.h"

#include "desk/bench/host.h"
#include "desk/bench/run.h"

#include <algorithm>
#include <climits>

namespace desk::bench {

namespace {

constexpr int entries = 20;
constexpr int few = 200;
constexpr int many = 2'000;
constexpr long tolerance = 128; // KB: what two runs of the same differ by

// The least of three runs: now and then the system takes about 1,000 KB more for
// itself, after few items as after many.
long memoryAfter(Runner& runner, int items)
{
    long least = LONG_MAX;
    for (int run = 0; run < 3; ++run) {
        runner.give(synchronisationRecords(entries, items));
        runner.hublinkStarts();
        least = std::min(least, privateMemory());
        runner.stopHublink();
    }
    return least;
}

}

void measureMemory(player::Desk& desk, Groupware& groupware, Report& report)
{
    report.section(std::wstring(groupware.name()) + L": memory of hublink.exe after a first synchronisation");
    Runner runner(desk, groupware, report);
    runner.startPartners();
    runner.configure(false);
    const long afterFew = memoryAfter(runner, few);
    const long afterMany = memoryAfter(runner, many);
    report.target(afterMany - afterFew <= tolerance,
                  L"private memory after " + std::to_wstring(few) + L" history items " + std::to_wstring(afterFew) +
                      L" KB, after " + std::to_wstring(many) + L" items " + std::to_wstring(afterMany) +
                      L" KB; at most " + std::to_wstring(tolerance) + L" KB more");
}

}

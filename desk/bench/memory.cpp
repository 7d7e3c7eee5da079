#include "desk/bench/memory.h"

#include "desk/bench/host.h"
#include "desk/bench/run.h"

namespace desk::bench {

namespace {

constexpr int entries = 20;
constexpr int few = 200;
constexpr int many = 2'000;
constexpr long tolerance = 128; // KB: what two runs of the same differ by

long memoryAfter(Runner& runner, int items)
{
    runner.give(synchronisationRecords(entries, items));
    runner.hublinkStarts();
    const long kilobytes = privateMemory();
    runner.stopHublink();
    return kilobytes;
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

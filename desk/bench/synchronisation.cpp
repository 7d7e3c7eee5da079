#include "desk/bench/synchronisation.h"

#include "desk/bench/outlook_steps.h"
#include "desk/bench/run.h"

#include <cmath>
#include <stdexcept>

namespace desk::bench {

namespace {

constexpr int contactsBefore = 150;
constexpr int entries = 200;
constexpr int items = 1'000;
constexpr int share = 10; // of which the script does one
constexpr double maxOfScripts = 0.04;
constexpr unsigned long maxInSecondRun = 5'054;

// What the script would have taken for everything.
struct Reckoned {
    double calls = 0;
    double milliseconds = 0;
};

class Synchronisation {
public:
    Synchronisation(player::Desk& desk, Groupware& groupware, Report& report)
        : groupware_(groupware), report_(report), runner_(desk, groupware, report),
          whole_(synchronisationRecords(entries, items)), tenth_(synchronisationRecords(entries / share, items / share))
    {}

    void measure()
    {
        runner_.startPartners();
        runner_.configure(false);
        const Run hublink = firstRun(whole_, L"Hublink, first run");
        compareSecondRuns();
        const Run hublinkTenth = firstRun(tenth_, L"Hublink, a tenth");
        const std::wstring mirrored = groupware_.mirrored();
        runner_.give(tenth_);
        report_.remark(L"script, a tenth");
        const Run scriptTenth = runner_.script(L"sync");
        report_.target(groupware_.mirrored() == mirrored, L"the script has left the same records as Hublink");
        compareFirstRuns(hublink, hublinkTenth, scriptTenth);
    }

private:
    Run firstRun(const SynchronisationRecords& records, const std::wstring& what)
    {
        runner_.give(records);
        report_.remark(what);
        const Run run = runner_.measureStart();
        runner_.stopHublink();
        return run;
    }

    void compareSecondRuns()
    {
        const std::wstring mirrored = groupware_.mirrored();
        report_.remark(L"Hublink, second run: everything is mapped");
        const Run hublink = runner_.measureStart();
        runner_.stopHublink();
        report_.remark(L"script, second run");
        const Run script = runner_.script(L"sync");
        if (groupware_.mirrored() != mirrored) throw std::runtime_error("a second run has mirrored something again");
        tellLines(table({{L"Hublink", hublink.counts}, {L"script", script.counts}}));
        tellComparison(L"second run", hublink, reckonedAs(script));
        reportFigures(L"second", hublink, reckonedAs(script), Known::measured);
        compareWithSteps(hublink);
    }

    void tellLines(const std::vector<std::wstring>& lines)
    {
        for (const std::wstring& line : lines) report_.remark(line);
    }

    static Reckoned reckonedAs(const Run& run) { return {static_cast<double>(run.counts.total()), run.milliseconds}; }

    // The walks grow with the contacts that they have to pass, all else with the records.
    Reckoned wholeOf(const Run& tenth) const
    {
        const double walkShare = static_cast<double>(whole_.walked) / static_cast<double>(tenth_.walked);
        Reckoned whole;
        for (const auto& [member, count] : tenth.counts.members())
            whole.calls += (count.calls + count.lookUps) * (groupware_.isOfWalk(member) ? walkShare : share);
        whole.milliseconds = tenth.milliseconds * whole.calls / tenth.counts.total();
        return whole;
    }

    void compareFirstRuns(const Run& hublink, const Run& hublinkTenth, const Run& scriptTenth)
    {
        if (groupware_.walked(scriptTenth.counts) != tenth_.walked)
            throw std::runtime_error("the script has not walked over as many contacts as was reckoned");
        tellLines(
            table({{L"Hublink", hublink.counts}, {L"a tenth", hublinkTenth.counts}, {L"script", scriptTenth.counts}}));
        tellComparison(L"first run, a tenth", hublinkTenth, reckonedAs(scriptTenth));
        report_.remark(L"The script's walks asked for " + std::to_wstring(tenth_.walked) +
                       L" contacts; for everything they would for " + std::to_wstring(whole_.walked) + L".");
        const double ratio = tellComparison(L"first run, the script's whole reckoned", hublink, wholeOf(scriptTenth));
        reportFigures(L"first", hublink, wholeOf(scriptTenth), Known::reckoned);
        report_.needed(std::wstring(groupware_.name()) + L", first synchronisation",
                       sumOf(firstSynchronisationSteps()));
        report_.target(ratio <= maxOfScripts, L"first synchronisation: " + decimal(ratio) +
                                                  L" of the script's round trips; at most " + decimal(maxOfScripts));
    }

    double tellComparison(const std::wstring& what, const Run& hublink, const Reckoned& script)
    {
        const double ratio = hublink.counts.total() / script.calls;
        report_.remark(what + L": Hublink " + std::to_wstring(hublink.counts.total()) + L" round trips, " +
                       seconds(hublink.milliseconds) + L"; script " + std::to_wstring(std::lround(script.calls)) +
                       L", " + seconds(script.milliseconds) + L"; ratio " + decimal(ratio) + L", of the times " +
                       decimal(hublink.milliseconds / script.milliseconds));
        return ratio;
    }

    void reportFigures(const wchar_t* which, const Run& hublink, const Reckoned& script, Known how)
    {
        const std::wstring work = std::wstring(groupware_.name()) + L", " + which + L" synchronisation";
        report_.cost(
            {work, L"Hublink", contactsBefore, static_cast<double>(hublink.counts.total()), hublink.milliseconds});
        report_.cost({work, L"script", contactsBefore, script.calls, script.milliseconds, how});
    }

    void compareWithSteps(const Run& second)
    {
        std::vector<NeededCalls> steps{
            {L"attaching: Attached, Line, User, its two texts, History, AddressBook", 7},
            {L"purge: Find of each mapped record", entries + items},
            {L"the two counts", 2},
            {L"each entry: Item, Number, IdHigh, IdLow", 4 * entries},
            {L"each history item: Item, IdHigh, IdLow", 3 * items},
        };
        for (const NeededCalls& step : groupware_.neededForSession()) steps.push_back(step);
        unsigned long needed = 0;
        report_.remark(L"Hublink's second run, the calls that its steps need:");
        for (const NeededCalls& step : steps) {
            report_.remark(aligned(std::to_wstring(step.count), 8) + L"  " + step.what);
            needed += step.count;
        }
        const unsigned long seen = second.counts.total();
        report_.needed(std::wstring(groupware_.name()) + L", second synchronisation", needed);
        report_.target(seen <= maxInSecondRun,
                       L"second run: " + std::to_wstring(needed) + L" round trips needed, " + std::to_wstring(seen) +
                           L" seen, " + std::to_wstring(second.counts.lookUps()) + L" of them name look-ups; at most " +
                           std::to_wstring(maxInSecondRun));
    }

    Groupware& groupware_;
    Report& report_;
    Runner runner_;
    const SynchronisationRecords whole_;
    const SynchronisationRecords tenth_;
};

}

void measureSynchronisation(player::Desk& desk, Groupware& groupware, Report& report)
{
    report.section(std::wstring(groupware.name()) + L": " + std::to_wstring(entries) + L" entries over " +
                   std::to_wstring(contactsBefore) + L" contacts, half of them known under other layouts; " +
                   std::to_wstring(items) + L" history items; pauses 0");
    report.remark(L"Calls of the identifier map are not among the round trips: nobody counts there.");
    Synchronisation(desk, groupware, report).measure();
}

}

// What is measured. Hublink: from just before the request that lets the softphone
// ring (it rings once it has answered) until the window is shown.
// The script, which cannot take events: from the window of one call being gone, upon
// which it begins the next at once, until the next window; it is spared the event's
// way. Nobody looks on meanwhile, so that nothing is measured but their work.
#include "desk/bench/latency.h"

#include "automation/text.h"
#include "desk/bench/outlook_groupware.h"
#include "desk/bench/people.h"
#include "desk/bench/run.h"
#include "desk/bench/window_watch.h"
#include "desk/common/store_file.h"
#include "desk/common/text.h"

#include <algorithm>
#include <cmath>
#include <stdexcept>
#include <vector>

namespace desk::bench {

namespace {

constexpr int contactsInFolder = 1'000;
constexpr int calls = 200;
constexpr int betweenCallers = contactsInFolder / calls;
constexpr int scriptedCalls = 12;    // it takes seconds for each
constexpr int betweenScripted = 83; // all over the folder, and no multiple of the four layouts
constexpr DWORD timeout = 20'000;     // milliseconds, for an event

class Latency {
public:
    Latency(player::Desk& desk, Report& report)
        : desk_(desk), report_(report), outlook_(desk), runner_(desk, outlook_, report),
          people_(contacts(contactsInFolder))
    {}

    void measure()
    {
        runner_.startPartners();
        runner_.configure(false);
        report_.remark(L"milliseconds     calls      50 %      90 %      99 %      most");
        reportTimes(L"Hublink", hublink());
        reportTimes(L"script", script());
    }

private:
    void load()
    {
        outlook_.load(people_);
        contacts_ = parseStore(desk_.outlook(L"contacts"));
    }

    std::wstring numberAt(int place) const
    {
        return automation::toWide(withoutSeparators(people_[static_cast<std::size_t>(place)].number));
    }

    std::vector<double> hublink()
    {
        load();
        runner_.measureStart();
        std::vector<double> times;
        for (int call = 0; call < calls; ++call) {
            const int place = call * betweenCallers;
            const double start = now();
            desk_.softphone(L"call Number=" + numberAt(place) + L" Incoming=true");
            times.push_back(watch_.shown() - start);
            expectContactAt(place);
            closeWindows();
        }
        runner_.stopHublink();
        return times;
    }

    // The script closes each window itself, after a while. Its first call is not
    // counted: nobody can see when it begins.
    std::vector<double> script()
    {
        load();
        std::wstring arguments;
        for (int call = 0; call <= scriptedCalls; ++call) arguments += L" " + numberAt(call * betweenScripted);
        const player::Process process = runner_.startScript(L"calls" + arguments);
        std::vector<double> times;
        watch_.shown();
        for (int call = 1; call <= scriptedCalls; ++call) {
            const double start = watch_.gone();
            times.push_back(watch_.shown() - start);
            expectContactAt(call * betweenScripted);
        }
        Runner::expectScriptEnds(process);
        return times;
    }

    void expectContactAt(int place)
    {
        const std::wstring* id = contacts_[static_cast<std::size_t>(place)].find(L"EntryID");
        if (!id || !desk_.outlook(L"windows").ends_with(L"\tcontact\t" + *id))
            throw std::runtime_error("the window is not the caller's");
    }

    // What Outlook has to save is in its store then: it does not fall into the next call.
    void closeWindows()
    {
        player::waitUntil([&] { return desk_.softphone(L"pending") == L"0"; }, timeout);
        desk_.outlook(L"close-windows");
        watch_.gone();
    }

    void reportTimes(const std::wstring& client, std::vector<double> times)
    {
        std::sort(times.begin(), times.end());
        std::wstring line = client + std::wstring(14 - client.size(), L' ') + aligned(std::to_wstring(times.size()), 8);
        std::vector<std::wstring> figure{L"latency", client, std::to_wstring(times.size())};
        for (const int percent : {50, 90, 99, 100}) {
            const std::size_t rank = (times.size() * static_cast<std::size_t>(percent) + 99) / 100;
            figure.push_back(std::to_wstring(std::lround(times[rank - 1])));
            line += aligned(figure.back(), 10);
        }
        report_.remark(line);
        report_.figure(figure);
    }

    player::Desk& desk_;
    Report& report_;
    OutlookGroupware outlook_;
    Runner runner_;
    WindowWatch watch_;
    const People people_;
    std::vector<StoreRecord> contacts_;
};

}

void measureLatency(player::Desk& desk, Report& report)
{
    report.section(L"Outlook: from the event to the window, " + std::to_wstring(calls) + L" known callers over " +
                   std::to_wstring(contactsInFolder) + L" contacts");
    Latency(desk, report).measure();
}

}

// One client's work between the partners, measured: the calls that they
// counted, and the time.
#pragma once

#include "desk/bench/groupware.h"
#include "desk/bench/report.h"
#include "desk/player/desk.h"

#include <functional>

namespace desk::bench {

struct Run {
    CallCounts counts;
    unsigned long inGroupware = 0; // round trips, of all these
    double milliseconds = 0;       // from the start of the work to its last call
};

class Runner {
public:
    Runner(player::Desk& desk, Groupware& groupware, Report& report) noexcept
        : desk_(desk), groupware_(groupware), report_(report)
    {}

    // Both partners, with nothing.
    void startPartners();

    // Gives them these records and empties the identifier map. Hublink does not run.
    void give(const SynchronisationRecords& records);

    // The ini file as installed, but with both pauses 0 and with this switch.
    void configure(bool newContacts);

    // Hublink from its start to the end of its initialisation; it goes on running.
    Run measureStart();

    // A call that rings while Hublink runs, until it is served. `fields` as the
    // softphone takes them.
    Run measureCall(const std::wstring& fields);

    // The groupware's script to its end. Throws std::runtime_error when it fails.
    Run script(const std::wstring& arguments);

    // The same in two steps, with nothing measured.
    player::Process startScript(const std::wstring& arguments);
    static void expectScriptEnds(const player::Process& script);

    // Ends Hublink. Throws std::runtime_error when it does not.
    void stopHublink();

private:
    using Action = std::function<void()>;
    using Condition = std::function<bool()>;
    Run measured(const Action& begin, const Condition& isDone);
    void count(Run& run);

    player::Desk& desk_;
    Groupware& groupware_;
    Report& report_;
};

}

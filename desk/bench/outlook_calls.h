// Calls of the line as they are measured in Outlook, Hublink's work beside the
// same work by the script.
#pragma once

#include "desk/bench/outlook_groupware.h"
#include "desk/bench/people.h"
#include "desk/bench/reckoned.h"
#include "desk/bench/report.h"
#include "desk/bench/run.h"

#include <functional>
#include <string>
#include <vector>

namespace desk::bench {

// Whether a number that was found with dots or blanks is written bare.
enum class Numbers { rewritten, kept };

struct OutlookCall {
    std::wstring name;
    std::function<People(int)> contacts; // the folder, with that many
    std::wstring ring;                   // the call's fields, as the softphone takes them
    std::wstring script;                 // the same as the script takes it
    std::vector<std::wstring> titles;    // of the windows that open
    Numbers numbers = Numbers::rewritten;
    std::vector<NeededCalls> needed;     // calls that its steps cannot do without
};

inline constexpr const wchar_t* howTheScriptRuns =
    L"Where the script walks it is run over 10 and 100 contacts; over more its figures are reckoned.";
inline constexpr int contactCounts[] = {100, 1'000, 10'000};

class OutlookCalls {
public:
    // `desk` and `report` outlive it. Both partners are started.
    OutlookCalls(player::Desk& desk, Report& report);

    // Each throws std::runtime_error unless the call's windows open, and no others.
    Run hublink(const OutlookCall& call, int contacts);
    Run hublinkWithoutTables(const OutlookCall& call, int contacts);
    Run script(const OutlookCall& call, int contacts);

    // Hublink over 100, 1,000 and 10,000 contacts, the last one returned, beside
    // the script.
    Run compare(const OutlookCall& call);

    // Hublink in an Outlook without tables, over 10,000 contacts reckoned too.
    void reportWithoutTables(const OutlookCall& call);

private:
    Run served(const OutlookCall& call);
    void load(const OutlookCall& call, int contacts);
    void expectWindows(const OutlookCall& call);
    Cost scriptsCost(const OutlookCall& call, int contacts, const Run& few, const Run& more);
    void reportFigures(const Cost& hublink, unsigned long inOutlook, const Cost& script);
    void reportNeeded(const OutlookCall& call);

    player::Desk& desk_;
    Report& report_;
    OutlookGroupware outlook_;
    Runner runner_;
};

}

// Measures the program at the simulated desk.
//
//     bench [SECTION...]     of those below; all without any
//
// Exit code 0 only if every target was met.
#include "automation/apartment.h"
#include "desk/bench/callers.h"
#include "desk/bench/known.h"
#include "desk/bench/latency.h"
#include "desk/bench/long_run.h"
#include "desk/bench/map.h"
#include "desk/bench/memory.h"
#include "desk/bench/notes_measures.h"
#include "desk/bench/outlook_groupware.h"
#include "desk/bench/synchronisation.h"

#include <algorithm>
#include <cstdio>
#include <stdexcept>
#include <string_view>
#include <vector>

namespace {

using namespace desk::bench;
using desk::player::Desk;

struct Section {
    std::string_view name;
    void (*measure)(Report&);
};

constexpr Section sections[] = {
    {"synchronisation",
     [](Report& report) {
         Desk desk;
         OutlookGroupware outlook(desk);
         measureSynchronisation(desk, outlook, report);
     }},
    {"memory",
     [](Report& report) {
         Desk desk;
         OutlookGroupware outlook(desk);
         measureMemory(desk, outlook, report);
     }},
    {"callers",
     [](Report& report) {
         Desk desk;
         measureCallers(desk, report);
     }},
    {"known",
     [](Report& report) {
         Desk desk;
         measureKnown(desk, report);
     }},
    {"forwarded",
     [](Report& report) {
         Desk desk;
         measureForwarded(desk, report);
     }},
    {"latency",
     [](Report& report) {
         Desk desk;
         measureLatency(desk, report);
     }},
    {"notes",
     [](Report& report) {
         Desk desk;
         measureNotes(desk, report);
     }},
    {"map",
     [](Report& report) {
         Desk desk;
         measureMap(desk, report);
     }},
    {"long-run",
     [](Report& report) {
         Desk desk;
         measureLongRun(desk, report);
     }},
};

bool isSection(std::string_view name)
{
    return std::any_of(std::begin(sections), std::end(sections),
                       [&](const Section& section) { return section.name == name; });
}

int usage()
{
    std::fprintf(stderr, "usage: bench");
    for (const Section& section : sections) std::fprintf(stderr, " [%s]", section.name.data());
    std::fprintf(stderr, "\n");
    return 2;
}

}

int main(int argc, char** argv)
{
    const std::vector<std::string_view> wanted(argv + 1, argv + argc);
    if (!std::all_of(wanted.begin(), wanted.end(), isSection)) {
        return usage();
    }
    try {
        const automation::Apartment apartment;
        Report report;
        for (const Section& section : sections)
            if (wanted.empty() || std::find(wanted.begin(), wanted.end(), section.name) != wanted.end())
                section.measure(report);
        return report.conclude() ? 1 : 0;
    } catch (const std::exception& error) {
        std::fprintf(stderr, "bench: %s\n", error.what());
        return 1;
    }
}

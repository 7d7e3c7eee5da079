// Lets one program after the other die in the middle of a synchronisation, and
// looks at what is left when it has been started again.
//
//     deaths [--in outlook | lotus | both] [--seed N] [--each N] [--minutes N] [--only KIND]
//            [--part I --of N] [--tell each]
//
// --each is the number of trials of each kind that is sampled, --minutes the time
// after which no further sampled trial begins (without it there is no such time), KIND
// one of hublink, groupware, softphone, map, busy, failure; of N parts only the I-th is
// tried, so that several sessions may share the work; "--tell each" tells every trial
// and what it took. A line for each deviation, the totals at the end; exit code 0 only
// when every trial was made, none deviated, and few had to be made twice.
#include "notes_mirror.h"
#include "outlook_mirror.h"
#include "trials.h"

#include "automation/apartment.h"
#include "desk/common/text.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <map>
#include <optional>

namespace {

using namespace deaths;

struct Options {
    Sampling sampling;
    DWORD minutes = MAXDWORD;
    std::optional<Mishap> only;
    bool inOutlook = true;
    bool inNotes = false;
    unsigned part = 1;
    unsigned parts = 1;
    bool tellsEach = false;
};

std::optional<Mishap> mishapNamed(const char* name)
{
    static const char* const names[] = {"hublink", "groupware", "softphone", "map", "busy", "failure"};
    for (int index = 0; index < 6; ++index)
        if (!std::strcmp(names[index], name)) return static_cast<Mishap>(index);
    return std::nullopt;
}

bool chooseGroupware(Options& options, const char* name)
{
    options.inOutlook = std::strcmp(name, "lotus");
    options.inNotes = std::strcmp(name, "outlook");
    return !options.inOutlook || !options.inNotes || !std::strcmp(name, "both");
}

bool read(Options& options, int argc, char** argv)
{
    for (int index = 1; index + 1 < argc; index += 2) {
        const auto value = static_cast<unsigned>(std::strtoul(argv[index + 1], nullptr, 10));
        if (!std::strcmp(argv[index], "--seed")) options.sampling.seed = value;
        else if (!std::strcmp(argv[index], "--each")) options.sampling.eachKind = value;
        else if (!std::strcmp(argv[index], "--minutes")) options.minutes = value;
        else if (!std::strcmp(argv[index], "--part")) options.part = value;
        else if (!std::strcmp(argv[index], "--of")) options.parts = value;
        else if (!std::strcmp(argv[index], "--only") && mishapNamed(argv[index + 1]))
            options.only = mishapNamed(argv[index + 1]);
        else if (!std::strcmp(argv[index], "--in") && chooseGroupware(options, argv[index + 1])) continue;
        else if (!std::strcmp(argv[index], "--tell")) options.tellsEach = true;
        else return false;
    }
    return argc % 2 == 1 && options.part >= 1 && options.part <= options.parts;
}

// A trial that breaks off is made once more, since the machine may have been too
// busy. More of them than this have a cause that a second try must not hide.
int maxRepetitions(int trials)
{
    return 1 + trials / 100;
}

class Sweep {
public:
    explicit Sweep(const Options& options) : options_(options), stage_(groupware()) {}

    int run()
    {
        const std::vector<Trial> all = chosen();
        std::size_t calls = 0;
        for (PartnerNumber partner = 1; partner < stage_.partners(); ++partner) calls += stage_.callsOf(partner).size();
        printProgress(std::to_string(stage_.callsOf(softphone).size()) + " calls to the softphone, " +
                      std::to_string(calls) + " to the groupware; " + std::to_string(all.size()) + " trials, seed " +
                      std::to_string(options_.sampling.seed));
        for (const Trial& trial : all) {
            // What is not sampled is never left out.
            if (stage_.isSampled(trial) && minutes() >= options_.minutes) break;
            attempt(trial);
            if (++done_ % 50 == 0) printProgress(std::to_string(done_) + " of " + std::to_string(all.size()));
        }
        return conclude(all.size());
    }

private:
    std::vector<const Groupware*> groupware() const
    {
        std::vector<const Groupware*> chosen;
        if (options_.inNotes) chosen.push_back(&notes_);
        if (options_.inOutlook) chosen.push_back(&outlook_);
        return chosen;
    }

    std::vector<Trial> chosen() const
    {
        std::vector<Trial> all = trials(stage_, options_.sampling);
        std::erase_if(all, [&](const Trial& trial) { return options_.only && *options_.only != trial.mishap; });
        std::vector<Trial> part;
        for (std::size_t index = options_.part - 1; index < all.size(); index += options_.parts)
            part.push_back(all[index]);
        return part;
    }

    void attempt(const Trial& trial)
    {
        const DWORD start = GetTickCount();
        const Verdict verdict = stage_.run(trial);
        if (options_.tellsEach)
            printProgress(desk::utf8(stage_.text(trial)) + ": " + std::to_string(GetTickCount() - start) + " ms");
        ++tried_[trial.text()];
        lost_ += verdict.lost;
        missing_ += verdict.missingAsAllowed;
        allowed_ += verdict.doubledAsAllowed;
        forbidden_ += verdict.doubledForbidden;
        if (!verdict.isGood()) ++bad_;
        if (!verdict.brokenOff.empty()) {
            ++repeated_;
            printProgress(desk::utf8(stage_.text(trial) + L" was tried again: " + verdict.brokenOff));
        }
        for (const std::wstring& deviation : verdict.deviations)
            printProgress(desk::utf8(stage_.text(trial) + L": " + desk::escaped(deviation)));
    }

    int conclude(std::size_t planned)
    {
        for (const auto& [what, count] : tried_) std::printf("%6d  %s\n", count, desk::utf8(what).c_str());
        std::printf("%6d  tried of %u planned, in %lu minutes\n", done_, static_cast<unsigned>(planned), minutes());
        const std::pair<int, const char*> totals[] = {{lost_, "records lost"},
                                                      {missing_, "callers' contacts not made, as allowed"},
                                                      {allowed_, "records doubled as allowed"},
                                                      {forbidden_, "records doubled against the rule"},
                                                      {repeated_, "trials repeated"},
                                                      {bad_, "trials with a deviation"}};
        for (const auto& [count, what] : totals) std::printf("%6d  %s\n", count, what);
        const bool isWhole = static_cast<std::size_t>(done_) == planned;
        if (!isWhole) std::printf("NOT WHOLE: the time was up\n");
        if (repeated_ > maxRepetitions(done_)) std::printf("TOO MANY trials repeated\n");
        return bad_ == 0 && isWhole && repeated_ <= maxRepetitions(done_) ? 0 : 1;
    }

    DWORD minutes() const { return (GetTickCount() - start_) / 60'000; }

    void printProgress(const std::string& line)
    {
        std::printf("%3lu:%02lu  %s\n", minutes(), (GetTickCount() - start_) / 1000 % 60, line.c_str());
        std::fflush(stdout);
    }

    const Options options_;
    const DWORD start_ = GetTickCount();
    const OutlookMirror outlook_;
    const NotesMirror notes_;
    Stage stage_;
    std::map<std::wstring, int> tried_;
    int done_ = 0;
    int lost_ = 0;
    int missing_ = 0;
    int allowed_ = 0;
    int forbidden_ = 0;
    int repeated_ = 0;
    int bad_ = 0;
};

}

int main(int argc, char** argv)
{
    Options options;
    if (!read(options, argc, argv)) {
        std::fprintf(stderr,
                     "usage: deaths [--in outlook | lotus | both] [--seed N] [--each N] [--minutes N] [--only KIND] "
                     "[--part I --of N] [--tell each]\n");
        return 2;
    }
    try {
        const automation::Apartment apartment;
        return Sweep(options).run();
    } catch (const std::exception& error) {
        std::fprintf(stderr, "deaths: %s\n", error.what());
        return 1;
    }
}

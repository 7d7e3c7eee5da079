#include "desk/bench/notes_measures.h"

#include "desk/bench/notes_groupware.h"
#include "desk/bench/notes_steps.h"
#include "desk/bench/run.h"
#include "desk/common/text.h"
#include "desk/player/fixtures.h"

#include <stdexcept>

namespace desk::bench {

namespace {

constexpr int entries = 200;
constexpr int items = 1'000;
constexpr int personsInABook = 20'000;
constexpr const char* callersNumber = "0123456789";
constexpr double maxOfScripts = 0.45; // of its round trips in the first run
constexpr unsigned long maxOfMorning = 28;
constexpr int personsOfTheMorning = 43;
constexpr int contactsBefore = 150;

class NotesMeasures {
public:
    NotesMeasures(player::Desk& desk, Report& report)
        : desk_(desk), report_(report), notes_(desk), runner_(desk, notes_, report)
    {}

    void measure()
    {
        runner_.startPartners();
        runner_.configure(false);
        synchronise();
        call();
        morningsCall();
    }

private:
    void synchronise()
    {
        const SynchronisationRecords records = synchronisationRecords(entries, items);
        runner_.give(records);
        const Run first = hublink(L"Hublink, first run");
        const std::wstring mirrored = notes_.mirrored();
        const Run second = hublink(L"Hublink, second run: everything is mapped");
        if (notes_.mirrored() != mirrored) throw std::runtime_error("a second run has mirrored something again");
        runner_.give(records);
        const Run scriptFirst = script(L"script, first run", L"sync");
        report_.target(notes_.mirrored() == mirrored, L"the script has left the same documents as Hublink");
        const Run scriptSecond = script(L"script, second run", L"sync");
        const double ratio = compare(L"first synchronisation", contactsBefore, first, scriptFirst);
        report_.target(ratio <= maxOfScripts, L"first synchronisation: " + decimal(ratio) +
                                                  L" of the script's round trips; at most " + decimal(maxOfScripts));
        report_.needed(L"Notes, first synchronisation", sumOf(notesFirstSynchronisationSteps()));
        compare(L"second synchronisation", contactsBefore, second, scriptSecond);
        compareWithSteps(second);
    }

    Run hublink(const wchar_t* what)
    {
        report_.remark(what);
        const Run run = runner_.measureStart();
        runner_.stopHublink();
        return run;
    }

    Run script(const wchar_t* what, const std::wstring& arguments)
    {
        report_.remark(what);
        return runner_.script(arguments);
    }

    double compare(const std::wstring& what, int contacts, const Run& hublink, const Run& script)
    {
        for (const std::wstring& line : table({{L"Hublink", hublink.counts}, {L"script", script.counts}}))
            report_.remark(line);
        const double ratio = static_cast<double>(hublink.counts.total()) / script.counts.total();
        report_.remark(what + L": Hublink " + std::to_wstring(hublink.counts.total()) + L" round trips, " +
                       seconds(hublink.milliseconds) + L"; script " + std::to_wstring(script.counts.total()) + L", " +
                       seconds(script.milliseconds) + L"; ratio " + decimal(ratio) + L", of the times " +
                       decimal(hublink.milliseconds / script.milliseconds));
        const std::wstring work = L"Notes, " + what;
        report_.cost({work, L"Hublink", contacts, static_cast<double>(hublink.counts.total()), hublink.milliseconds});
        report_.cost({work, L"script", contacts, static_cast<double>(script.counts.total()), script.milliseconds});
        return ratio;
    }

    void compareWithSteps(const Run& second)
    {
        unsigned long needed = 7 + (entries + items) + 2 + 4 * entries + 3 * items; // the softphone's, as with Outlook
        for (const NeededCalls& step : notes_.neededForSession()) needed += step.count;
        report_.needed(L"Notes, second synchronisation", needed);
        const unsigned long seen = second.counts.total();
        report_.target(seen <= needed + needed / 50, L"second run: " + std::to_wstring(needed) +
                                                         L" round trips needed, " + std::to_wstring(seen) + L" seen, " +
                                                         std::to_wstring(second.counts.lookUps()) +
                                                         L" of them name look-ups; at most 2 % more");
    }

    void call()
    {
        report_.remark(L"the call of a person in the last of three books with " + std::to_wstring(personsInABook) +
                       L" persons each");
        notes_.fillBooks(personsInABook, callersNumber);
        scriptIsCalled(); // Notes makes the indexes of its views at the first look-up
        runner_.measureStart();
        const Run hublink = runner_.measureCall(L"Number=0123456789 Incoming=true");
        expectDocument();
        runner_.stopHublink();
        report_.needed(L"Notes, known caller in the last of three books", sumOf(notesKnownCallersSteps()));
        compare(L"known caller in the last of three books", 3 * personsInABook, hublink, scriptIsCalled());
    }

    // With the books, the settings and the records of the scripted morning. The least
    // of some sessions' first calls: now and then Hublink looks at the document in front
    // meanwhile.
    void morningsCall()
    {
        report_.remark(L"the morning's call from a known number");
        for (const player::Setting& setting : player::notesSettings())
            desk_.setIni(setting.section, setting.key, setting.value);
        desk_.notes(L"load\n" + fromUtf8(player::morningDatabases()));
        desk_.softphone(L"load\n" + fromUtf8(player::morningSoftphone()));
        player::Desk::emptyIdentifierMap();
        const Run run = fewestOfThreeFirstCalls();
        for (const std::wstring& line : table({{L"Hublink", run.counts}})) report_.remark(line);
        report_.cost({L"Notes, known caller of the morning", L"Hublink", personsOfTheMorning,
                      static_cast<double>(run.counts.total()), run.milliseconds});
        report_.target(run.inGroupware <= maxOfMorning,
                       L"known caller of the morning: " + std::to_wstring(run.inGroupware) +
                           L" round trips in Notes; at most " + std::to_wstring(maxOfMorning));
    }

    Run fewestOfThreeFirstCalls()
    {
        Run least;
        for (int call = 0; call < 3; ++call) {
            desk_.notes(L"close-windows");
            runner_.measureStart();
            const Run run = runner_.measureCall(L"Number=0123456789 Incoming=true");
            expectDocument();
            runner_.stopHublink();
            if (call == 0 || run.inGroupware < least.inGroupware) least = run;
        }
        return least;
    }

    Run scriptIsCalled()
    {
        desk_.notes(L"close-windows");
        const Run run = runner_.script(L"call 0123456789");
        expectDocument();
        desk_.notes(L"close-windows");
        return run;
    }

    void expectDocument()
    {
        if (!desk_.notesShows(L"Marc Durand")) throw std::runtime_error("the caller's document is not on the screen");
    }

    player::Desk& desk_;
    Report& report_;
    NotesGroupware notes_;
    Runner runner_;
};

}

void measureNotes(player::Desk& desk, Report& report)
{
    report.section(L"Notes: " + std::to_wstring(entries) + L" entries over 150 contacts, half of them known; " +
                   std::to_wstring(items) + L" history items; pauses 0");
    NotesMeasures(desk, report).measure();
}

}

#include "desk/bench/run.h"

#include "automation/text.h"
#include "desk/common/text.h"

#include <stdexcept>

namespace desk::bench {

namespace {

using player::Process;

constexpr DWORD timeout = 600'000;  // milliseconds, for the longest work
constexpr DWORD quiet = 400;        // without a call, before the end is looked for
constexpr DWORD progressEvery = 15'000;
constexpr DWORD scriptDone = 42;     // what a script quits with

std::wstring scriptHost()
{
    wchar_t folder[MAX_PATH] = L"";
    GetSystemDirectoryW(folder, MAX_PATH);
    return std::wstring(folder) + L"\\cscript.exe";
}

}

void Runner::startPartners()
{
    desk_.startSoftphone();
    groupware_.start({});
}

void Runner::give(const SynchronisationRecords& records)
{
    groupware_.load(records.contacts);
    desk_.softphone(L"load\n" + fromUtf8(records.softphone));
    player::Desk::emptyIdentifierMap();
}

void Runner::configure(bool newContacts)
{
    player::copyFile(std::wstring(player::Desk::programFolder) + L"\\pavexconnector.ini", desk_.iniFile());
    desk_.setIni("Application", "tempo", "0");
    desk_.setIni("Application", "tempo1", "0");
    desk_.setIni("AllApplication", "NewContact", newContacts ? "true" : "false");
    groupware_.configure();
}

void Runner::count(Run& run)
{
    run.counts = CallCounts(groupware_.ask(L"calls"));
    run.inGroupware = run.counts.total();
    run.counts += CallCounts(desk_.softphone(L"calls"));
}

// The partners are asked rarely: their answers cost the client's time.
Run Runner::measured(const Action& begin, const Condition& isDone)
{
    groupware_.ask(L"clear");
    desk_.softphone(L"clear");
    const DWORD start = GetTickCount();
    begin();
    Run run;
    unsigned long seen = 0;
    DWORD lastCall = start;
    for (DWORD told = start;;) {
        player::waitFor(50);
        count(run);
        const DWORD now = GetTickCount();
        if (run.counts.total() != seen) {
            seen = run.counts.total();
            lastCall = now;
        } else if (now - lastCall > quiet && isDone()) {
            break;
        }
        if (now - start > timeout) throw std::runtime_error("the work does not come to its end");
        if (now - told > progressEvery) {
            report_.remark(L"... " + seconds(now - start) + L", " + std::to_wstring(seen) + L" round trips so far");
            told = now;
        }
    }
    run.milliseconds = lastCall - start;
    return run;
}

Run Runner::measureStart()
{
    constexpr const wchar_t* lastLine = L" Connector Initialization  Ok";
    const int before = groupware_.logLines(lastLine);
    return measured([&] { desk_.startHublink(); }, [&] { return groupware_.logLines(lastLine) > before; });
}

Run Runner::measureCall(const std::wstring& fields)
{
    return measured([&] { desk_.softphone(L"call " + fields); },
                    [&] { return desk_.softphone(L"pending") == L"0" && !desk_.softphone(L"calls").empty(); });
}

Run Runner::script(const std::wstring& arguments)
{
    Process process;
    const Run run = measured([&] { process = startScript(arguments); }, [&] { return process.ended(0); });
    expectScriptEnds(process);
    return run;
}

Process Runner::startScript(const std::wstring& arguments)
{
    const std::wstring file = player::ownFolder() + L"\\bench\\" + groupware_.script();
    return Process(scriptHost(), L"//nologo \"" + file + L"\" " + arguments);
}

void Runner::expectScriptEnds(const Process& script)
{
    if (!script.ended(timeout) || script.exitCode() != scriptDone)
        throw std::runtime_error("the script does not come to its end");
}

void Runner::stopHublink()
{
    if (!desk_.stopHublink()) throw std::runtime_error("Hublink does not stop");
}

}

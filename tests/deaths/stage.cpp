#include "stage.h"

#include "softphone_records.h"
#include "softphone_risks.h"

#include "desk/common/control_pipe.h"
#include "desk/common/text.h"

#include <algorithm>
#include <stdexcept>

namespace deaths {

namespace {

constexpr int mostTrials = 25; // with the same servers
constexpr const wchar_t* end = L"Connector Initialization  Ok";

}

void Stage::require(bool holds, const char* failure)
{
    if (!holds) throw std::runtime_error(failure);
}

Stage::Stage(const Groupware& groupware) : mirror_(groupware)
{
    desk_.startSoftphone(softphoneStore());
    mirror_.reopen(desk_);
    desk::player::writeFile(desk_.iniFile(), std::string("[Application]\r\ntype=") + mirror_.iniName() +
                                                 "\r\ntempo=0\r\ntempo1=0\r\n[AllApplication]\r\nNewContact=true\r\n"
                                                 "Histo=true\r\nRepertory=true\r\n" + mirror_.iniSections());
    learn();
}

std::wstring Stage::ask(bool softphone, std::wstring_view request)
{
    const std::wstring response = desk::ask(softphone ? L"pavex" : mirror_.partner(), request);
    if (response.starts_with(L"error:")) throw std::runtime_error(desk::utf8(response));
    return response;
}

// The undisturbed run that all trials are compared with.
void Stage::learn()
{
    reset();
    startAndWaitForTheLog();
    softphone_.calls = partnerCalls(ask(true, L"record"));
    groupware_.calls = partnerCalls(ask(false, L"record"));
    softphone_.risks = softphoneRisks(softphone_.calls);
    groupware_.risks = mirror_.risks(groupware_.calls);
    whole_ = state();
    const Verdict verdict = judge(whole_, mirror_, {}, nullptr);
    if (!verdict.good()) throw std::runtime_error("without a mishap: " + desk::utf8(verdict.deviations[0]));
}

void Stage::reset()
{
    if (desk_.hublinkProcess().running()) desk_.hublinkProcess().kill();
    const bool isTired = ++trialsOfTheseServers_ > mostTrials;
    if (isTired || !answers(desk_.softphoneProcess(), true) || !answers(mirror_.process(desk_), false)) renewServers();
    ask(true, L"clear");
    ask(false, L"clear");
    ask(false, L"load\n" + mirror_.startingRecords());
    map_.reset(mirror_.startingMap());
    remarks_.clear();
}

bool Stage::answers(const desk::player::Process& process, bool softphone) const
try {
    return process.running() && !desk::ask(softphone ? L"pavex" : mirror_.partner(), L"ping", 10'000).empty();
} catch (const std::runtime_error&) {
    return false;
}

// After a trial that broke off: a partner is dead, or hangs. And from time to
// time: where nobody tells a server that its client has died, what it made for
// the dead ones slows it down.
void Stage::renewServers()
{
    trialsOfTheseServers_ = 0;
    desk_.softphoneProcess().kill();
    mirror_.process(desk_).kill();
    support::killMapServers();
    support::forgetDeadServers();
    desk_.reopenSoftphone();
    mirror_.reopen(desk_);
    map_.reopen();
}

void Stage::plan(const Trial& trial, const std::wstring& action)
{
    const std::wstring at = L"fault at " + std::to_wstring(trial.call + 1) + L" ";
    ask(trial.ofSoftphone, at + action + (trial.after ? L" after" : L""));
}

State Stage::state() const
{
    return {mirror_.contacts(), mirror_.calls(), map_.records(), mirror_.logLines()};
}

std::size_t Stage::endsLogged() const
{
    const std::vector<std::wstring> lines = mirror_.logLines();
    return static_cast<std::size_t>(std::count(lines.begin(), lines.end(), end));
}

void Stage::startAndWaitForTheLog()
{
    const std::size_t before = endsLogged();
    desk_.startHublink();
    await([&] { return endsLogged() > before; }, "the initialisation does not come to its end");
}

// The softphone is asked, whose answers cost little, and the log but once.
void Stage::startAndWait()
{
    const std::size_t before = endsLogged();
    const std::size_t counted = softphoneCalls(L"History.Count get");
    desk_.startHublink();
    await([&] { return softphoneCalls(L"History.Count get") > counted; }, "the history is not mirrored");
    waitUntilServed();
    require(endsLogged() > before, "the initialisation does not come to its end");
}

std::size_t Stage::softphoneCalls(std::wstring_view call)
{
    for (const std::wstring& line : desk::linesOf(ask(true, L"calls"))) {
        std::wstring_view rest = line;
        const std::wstring count = desk::takeWord(rest);
        if (rest == call) return desk::numberOf(count, "number of calls");
    }
    return 0;
}

// A call on the line is served when everything that came before it is over,
// with or without a groupware. Of one without a number nothing else is read, so
// Hublink is idle then.
void Stage::waitUntilServed()
{
    const std::size_t before = softphoneCalls(L"Call.Number get");
    ask(true, L"call incoming=false");
    await([&] { return softphoneCalls(L"Call.Number get") > before; }, "a call is not served");
    ask(true, L"hangup");
}

Verdict Stage::run(const Trial& trial)
try {
    return attempt(trial);
} catch (const std::exception& first) {
    Verdict verdict;
    try {
        trialsOfTheseServers_ = mostTrials; // none of them is trusted any more
        verdict = attempt(trial);
    } catch (const std::exception& second) {
        verdict.deviations.push_back(desk::fromUtf8(second.what()));
    }
    verdict.brokenOff = desk::fromUtf8(first.what());
    return verdict;
}

Verdict Stage::attempt(const Trial& trial)
{
    reset();
    switch (trial.mishap) {
    case Mishap::hublinkDies: hublinkDies(trial); break;
    case Mishap::groupwareDies: groupwareDies(trial); break;
    case Mishap::softphoneDies: softphoneDies(trial); break;
    case Mishap::mapServerDies: mapServerDies(trial); break;
    case Mishap::busy: isBusy(trial); break;
    case Mishap::fails: fails(trial); break;
    }
    Verdict verdict = judge(state(), mirror_, permission(trial), trial.mishap == Mishap::fails ? nullptr : &whole_);
    verdict.deviations.insert(verdict.deviations.begin(), remarks_.begin(), remarks_.end());
    return verdict;
}

std::wstring Stage::text(const Trial& trial) const
{
    constexpr std::size_t longestCall = 80; // characters: a filter or a whole log may be among the arguments
    const PartnerCall& call = callsOf(trial.ofSoftphone)[trial.call];
    return trial.text() + L" call " + std::to_wstring(trial.call + 1) + L" of " +
           (trial.ofSoftphone ? L"pavex" : mirror_.partner()) + L", " + call.text.substr(0, longestCall);
}

Permission Stage::permission(const Trial& trial) const
{
    const Risk& risk = riskOf(trial);
    Permission permission;
    const bool isDeath = trial.mishap != Mishap::busy && trial.mishap != Mishap::fails;
    if (trial.mishap == Mishap::busy) return permission;
    const std::wstring& open = isDeath && trial.after ? risk.openAfter : risk.openBefore;
    if (!open.empty()) permission.calls.insert(open);
    if (trial.mishap == Mishap::fails) {
        permission.calls.insert(risk.unmappedByFailure.begin(), risk.unmappedByFailure.end());
        if (!risk.lookedFor.empty()) permission.numbers.insert(risk.lookedFor);
    }
    // The copy goes on without the map, until the next call is looked up in it.
    if (trial.mishap == Mishap::mapServerDies && !risk.beingCopied.empty()) permission.calls.insert(risk.beingCopied);
    if (trial.mishap == Mishap::softphoneDies)
        permission.calls.insert(risk.unmappedByDeath.begin(), risk.unmappedByDeath.end());
    return permission;
}

}

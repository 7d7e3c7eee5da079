#include "stage.h"

#include "softphone_records.h"
#include "softphone_risks.h"

#include "automation/text.h"
#include "desk/common/control_pipe.h"
#include "desk/common/text.h"

#include <algorithm>
#include <stdexcept>

namespace deaths {

namespace {

constexpr int maxTrials = 25; // with the same servers
constexpr std::size_t maxCallLength = 80; // characters: a filter or a whole log may be among the arguments
constexpr const wchar_t* end = L"Connector Initialization  Ok";

BOOL CALLBACK putInFront(HWND window, LPARAM processId)
{
    DWORD owner = 0;
    GetWindowThreadProcessId(window, &owner);
    if (owner != static_cast<DWORD>(processId) || !IsWindowVisible(window)) return TRUE;
    SetForegroundWindow(window);
    return FALSE;
}

}

void Stage::require(bool holds, const char* failure)
{
    if (!holds) throw std::runtime_error(failure);
}

Stage::Stage(std::vector<const Groupware*> groupware)
    : groupware_(std::move(groupware)), partners_(1 + groupware_.size())
{
    desk_.startSoftphone(softphoneStore());
    std::string names;
    std::string sections;
    for (const Groupware* each : groupware_) {
        each->reopen(desk_);
        names += std::string(names.empty() ? "" : ",") + each->iniName();
        sections += each->iniSections();
    }
    desk::player::writeFile(desk_.iniFile(), "[Application]\r\ntype=" + names +
                                                 "\r\ntempo=0\r\ntempo1=0\r\n[AllApplication]\r\nNewContact=true\r\n"
                                                 "Histo=true\r\nRepertory=true\r\n" +
                                                 sections);
    learn();
}

const wchar_t* Stage::nameOf(PartnerNumber partner) const
{
    return partner == softphone ? L"pavex" : groupware(partner).partner();
}

desk::player::Process& Stage::processOf(PartnerNumber partner)
{
    return partner == softphone ? desk_.softphoneProcess() : groupware(partner).process(desk_);
}

std::wstring Stage::ask(PartnerNumber partner, std::wstring_view request) const
{
    const std::wstring response = desk::ask(nameOf(partner), request);
    if (response.starts_with(L"error:")) throw std::runtime_error(desk::utf8(response));
    return response;
}

// The undisturbed run that all trials are compared with.
void Stage::learn()
{
    reset();
    startAndWaitForTheLog();
    for (PartnerNumber partner = softphone; partner < partners(); ++partner) {
        std::vector<PartnerCall>& calls = partners_[partner].calls;
        calls = partnerCalls(ask(partner, L"record"));
        partners_[partner].risks = partner == softphone ? softphoneRisks(calls) : groupware(partner).risks(calls);
    }
    for (const Groupware* each : groupware_) {
        whole_.push_back(stateOf(*each));
        const Verdict verdict = judge(whole_.back(), *each, {}, nullptr);
        if (!verdict.isGood()) throw std::runtime_error("without a mishap: " + desk::utf8(verdict.deviations[0]));
    }
}

void Stage::reset()
{
    if (desk_.hublinkProcess().running()) desk_.hublinkProcess().kill();
    const bool isTired = ++trialsOfTheseServers_ > maxTrials;
    if (isTired || !allAnswer()) renewServers();
    // While Notes is in front a timer of Hublink asks it for its document, now and then.
    EnumWindows(putInFront, static_cast<LPARAM>(processOf(softphone).id()));
    std::vector<MapRecord> map;
    ask(softphone, L"clear");
    for (PartnerNumber partner = 1; partner < partners(); ++partner) {
        ask(partner, L"clear");
        ask(partner, L"load\n" + groupware(partner).startingRecords());
        const std::vector<MapRecord> records = groupware(partner).startingMap();
        map.insert(map.end(), records.begin(), records.end());
    }
    map_.reset(map);
    remarks_.clear();
}

bool Stage::allAnswer()
try {
    for (PartnerNumber partner = softphone; partner < partners(); ++partner) {
        if (!processOf(partner).running()) return false;
        ask(partner, L"ping");
    }
    return true;
} catch (const std::runtime_error&) {
    return false;
}

// After a trial that broke off: a partner is dead, or hangs. And from time to
// time: where nobody tells a server that its client has died, what it made for
// the dead ones slows it down.
void Stage::renewServers()
{
    trialsOfTheseServers_ = 0;
    for (PartnerNumber partner = softphone; partner < partners(); ++partner) processOf(partner).kill();
    support::killMapServers();
    support::forgetDeadServers();
    desk_.reopenSoftphone();
    for (const Groupware* each : groupware_) each->reopen(desk_);
    map_.reopen();
}

// Counted among the calls of its member: how often Notes is asked for a number depends
// on how long ago it was asked for the same.
void Stage::plan(const Trial& trial, const std::wstring& action)
{
    const std::vector<PartnerCall>& calls = callsOf(trial.partner);
    const PartnerCall& call = calls[trial.call];
    const auto isAlike = [&](const PartnerCall& other) {
        return other.kind == call.kind && automation::equalIgnoringCase(other.member, call.member);
    };
    const auto place =
        1 + std::count_if(calls.begin(), calls.begin() + static_cast<std::ptrdiff_t>(trial.call), isAlike);
    ask(trial.partner, L"fault on " + call.member + L" " + call.kind + L" at " + std::to_wstring(place) + L" " +
                           action + (trial.after ? L" after" : L""));
}

State Stage::stateOf(const Groupware& groupware) const
{
    return {groupware.contacts(), groupware.calls(), map_.records(groupware.mapApplication()), groupware.logLines()};
}

// In the log that got least of them.
std::size_t Stage::endsLogged() const
{
    std::size_t least = std::wstring::npos;
    for (const Groupware* each : groupware_) {
        const std::vector<std::wstring> lines = each->logLines();
        least = std::min(least, static_cast<std::size_t>(std::count(lines.begin(), lines.end(), end)));
    }
    return least;
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
    for (const std::wstring& line : desk::linesOf(ask(softphone, L"calls"))) {
        std::wstring_view rest = line;
        const std::wstring count = desk::takeWord(rest);
        if (rest == call) return desk::numberOf(count, "number of calls");
    }
    return 0;
}

// A call on the line is served when everything that came before it is over,
// with or without a groupware. Of one without a number only the direction is
// read besides, so Hublink is idle then.
void Stage::waitUntilServed()
{
    const std::size_t before = softphoneCalls(L"Call.Incoming get");
    ask(softphone, L"call incoming=false");
    await([&] { return softphoneCalls(L"Call.Incoming get") > before; }, "a call is not served");
    ask(softphone, L"hangup");
}

Verdict Stage::run(const Trial& trial)
try {
    return attempt(trial);
} catch (const std::exception& first) {
    Verdict verdict;
    verdict.brokenOff = desk::fromUtf8(first.what()) + L"; " + whereAllStand();
    try {
        trialsOfTheseServers_ = maxTrials; // none of them is trusted any more
        verdict = attempt(trial);
    } catch (const std::exception& second) {
        verdict.deviations.push_back(desk::fromUtf8(second.what()));
    }
    return verdict;
}

// What a person would look at first when an attempt has broken off.
std::wstring Stage::whereAllStand()
{
    std::wstring text = desk_.hublinkProcess().running() ? L"Hublink runs" : L"Hublink has ended";
    for (PartnerNumber partner = softphone; partner < partners(); ++partner)
        text += L"; last call to " + std::wstring(nameOf(partner)) + L": " + lastCallOf(partner);
    return text;
}

std::wstring Stage::lastCallOf(PartnerNumber partner) const
try {
    const std::vector<std::wstring> calls = desk::linesOf(ask(partner, L"record"));
    return calls.empty() ? L"none" : std::to_wstring(calls.size()) + L", " + calls.back().substr(0, maxCallLength);
} catch (const std::exception&) {
    return L"unknown, it does not answer";
}

Verdict Stage::attempt(const Trial& trial)
{
    reset();
    switch (trial.mishap) {
    case Mishap::hublinkDies: killHublink(trial); break;
    case Mishap::groupwareDies: killGroupware(trial); break;
    case Mishap::softphoneDies: killSoftphone(trial); break;
    case Mishap::mapServerDies: killMapServer(trial); break;
    case Mishap::busy: answerBusy(trial); break;
    case Mishap::fails: answerFailure(trial); break;
    }
    Verdict verdict;
    verdict.deviations = remarks_;
    for (PartnerNumber partner = 1; partner < partners(); ++partner)
        verdict += judge(stateOf(groupware(partner)), groupware(partner), permission(trial, partner),
                         trial.mishap == Mishap::fails ? nullptr : &whole_[partner - 1]);
    return verdict;
}

std::wstring Stage::text(const Trial& trial) const
{
    const PartnerCall& call = callsOf(trial.partner)[trial.call];
    return trial.text() + L" call " + std::to_wstring(trial.call + 1) + L" of " + nameOf(trial.partner) + L", " +
           call.text.substr(0, maxCallLength);
}

// What the mishap may double in that groupware: one at another's call nothing.
Permission Stage::permission(const Trial& trial, PartnerNumber partner) const
{
    const Risk& risk = riskOf(trial);
    Permission permission;
    if (trial.partner != softphone && trial.partner != partner) return permission;
    const bool isDeath = trial.mishap != Mishap::busy && trial.mishap != Mishap::fails;
    if (trial.mishap == Mishap::busy) return permission;
    const std::wstring& open = isDeath && trial.after ? risk.openAfter : risk.openBefore;
    if (!open.empty()) permission.calls.insert(open);
    if (trial.mishap == Mishap::fails) {
        if (!risk.unmappedByFailure.empty()) permission.calls.insert(risk.unmappedByFailure);
        if (!risk.lookedFor.empty()) permission.numbers.insert(risk.lookedFor);
        permission.missing = risk.contactMadeFor;
    }
    // The copy goes on without the map, until the next call is looked up in it.
    if (trial.mishap == Mishap::mapServerDies && !risk.beingCopied.empty()) permission.calls.insert(risk.beingCopied);
    return permission;
}

}

#include "check/processes.h"

#include "automation/owners.h"
#include "common/running_processes.h"

namespace hublink::check {

namespace {

using automation::Handle;

constexpr DWORD queryLimited = 0x1000;                                          // Windows Vista and later
constexpr auto tokenElevation = static_cast<TOKEN_INFORMATION_CLASS>(20);       // likewise

Handle tokenOf(DWORD id)
{
    for (const DWORD right : {queryLimited, DWORD{PROCESS_QUERY_INFORMATION}}) {
        const Handle process(OpenProcess(right, FALSE, id));
        HANDLE token = nullptr;
        if (process && OpenProcessToken(process.get(), TOKEN_QUERY, &token)) return Handle(token);
    }
    return {};
}

// Windows XP knows no elevation: nobody's rights are more than the user's own there.
Elevation elevationOf(const Handle& token)
{
    DWORD isElevated = 0;
    DWORD size = 0;
    if (GetTokenInformation(token.get(), tokenElevation, &isElevated, sizeof isElevated, &size))
        return isElevated ? Elevation::yes : Elevation::no;
    return GetLastError() == ERROR_INVALID_PARAMETER ? Elevation::no : Elevation::unknown;
}

std::vector<BYTE> userOf(const Handle& token)
{
    DWORD size = 0;
    GetTokenInformation(token.get(), TokenUser, nullptr, 0, &size);
    std::vector<BYTE> user(size);
    if (size == 0 || !GetTokenInformation(token.get(), TokenUser, user.data(), size, &size)) user.clear();
    return user;
}

bool isOtherUser(const Handle& token)
{
    const std::vector<BYTE> own = userOf(tokenOf(GetCurrentProcessId()));
    const std::vector<BYTE> others = userOf(token);
    if (own.empty() || others.empty()) return false;
    const auto identifier = [](const std::vector<BYTE>& user) {
        return reinterpret_cast<const TOKEN_USER*>(user.data())->User.Sid;
    };
    return !EqualSid(identifier(own), identifier(others));
}

bool lookUp(ProgramFacts& program)
{
    const auto running = processesNamed(program.file);
    if (!running) return false;
    for (const DWORD id : *running) program.processes.push_back(processFacts(id));
    return true;
}

Finding running(const ProgramFacts& program, const ProcessFacts& process, const ProcessTexts& texts)
{
    const std::size_t id = process.id;
    if (process.isOtherUsers) return problem(texts.otherUser, program.file, id);
    switch (process.elevation) {
    case Elevation::no: return ok(texts.runs, program.file, id);
    case Elevation::yes: return ok(texts.runsElevated, program.file, id);
    case Elevation::unknown: break;
    }
    return note(texts.unknownRights, program.file, id);
}

void appendRunning(const ProgramFacts& program, const ProcessTexts& texts, Findings& findings)
{
    for (const ProcessFacts& process : program.processes) findings.push_back(running(program, process, texts));
    if (program.processes.size() > 1) findings.push_back(note(texts.several, program.file, program.processes.size()));
}

// Of Hublink, or where it does not run, of whoever would start it as this program was.
Elevation hublinksElevation(const RunningFacts& facts)
{
    return facts.hublink.processes.empty() ? facts.own : facts.hublink.processes.front().elevation;
}

void judgePartner(const ProgramFacts& partner, const RunningFacts& facts, const ProcessTexts& texts, Findings& findings)
{
    appendRunning(partner, texts, findings);
    if (partner.processes.empty()) {
        findings.push_back(ok(texts.runsNot, partner.file));
        return;
    }
    const Elevation hublink = hublinksElevation(facts);
    for (const ProcessFacts& process : partner.processes) {
        if (process.elevation == Elevation::yes && hublink == Elevation::no)
            findings.push_back(problem(texts.moreRights, partner.file, facts.hublink.file));
        if (process.elevation == Elevation::no && hublink == Elevation::yes)
            findings.push_back(problem(texts.moreRights, facts.hublink.file, partner.file));
    }
}

void judgeHublink(const RunningFacts& facts, const ProcessTexts& texts, Findings& findings)
{
    appendRunning(facts.hublink, texts, findings);
    if (facts.hublink.processes.empty()) findings.push_back(note(texts.hublinkRunsNot));
}

}

ProcessFacts processFacts(DWORD id)
{
    ProcessFacts facts{id};
    const Handle token = tokenOf(id);
    if (!token) return facts;
    facts.isOtherUsers = isOtherUser(token);
    facts.elevation = elevationOf(token);
    return facts;
}

RunningFacts runningFacts(const Configuration& configuration)
{
    RunningFacts facts;
    facts.usesOutlook = configuration.bgWithOutlook;
    facts.usesNotes = configuration.bgWithLotus;
    facts.own = processFacts(GetCurrentProcessId()).elevation;
    for (ProgramFacts* program : {&facts.hublink, &facts.softphone, &facts.outlook, &facts.notes, &facts.map})
        facts.isListed = lookUp(*program) && facts.isListed;
    return facts;
}

Findings processFindings(const RunningFacts& facts, const ProcessTexts& texts)
{
    if (!facts.isListed) return {problem(texts.notListed)};
    Findings findings{facts.own == Elevation::yes ? note(texts.checkElevated) : ok(texts.checkNotElevated)};
    judgeHublink(facts, texts, findings);
    if (facts.softphone.processes.empty()) findings.push_back(note(texts.softphoneRunsNot));
    else judgePartner(facts.softphone, facts, texts, findings);
    if (facts.usesOutlook) judgePartner(facts.outlook, facts, texts, findings);
    if (facts.usesNotes) judgePartner(facts.notes, facts, texts, findings);
    judgePartner(facts.map, facts, texts, findings);
    return findings;
}

}

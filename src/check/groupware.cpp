#include "check/groupware.h"

#include "common/running_processes.h"

namespace hublink::check {

namespace {

constexpr const wchar_t* newOutlook = L"olk.exe";

void appendClasses(const std::vector<ClassFacts>& classes, const ClassTexts& texts, Findings& findings)
{
    for (const ClassFacts& each : classes) append(findings, classFindings(each, texts));
}

}

GroupwareFacts groupwareFacts(const Configuration& configuration)
{
    GroupwareFacts facts{configuration.bgWithOutlook, configuration.bgWithLotus, {}, {}};
    facts.areSettingsRead = !configuration.szFileConnectorIni.empty();
    if (facts.usesOutlook) facts.outlook = {classFacts(L"Outlook.Application")};
    if (facts.usesNotes) facts.notes = {classFacts(L"Notes.NotesSession"), classFacts(L"Notes.NotesUIWorkspace")};
    facts.newOutlookRuns = !processesNamed(newOutlook).value_or(std::vector<DWORD>()).empty();
    return facts;
}

Findings groupwareFindings(const GroupwareFacts& facts, const Texts& texts)
{
    Findings findings;
    if (!facts.usesOutlook && !facts.usesNotes)
        return {facts.areSettingsRead ? ok(texts.groupware.none) : note(texts.groupware.unknown)};
    if (facts.usesOutlook) appendClasses(facts.outlook, texts.classes, findings);
    else findings.push_back(ok(texts.groupware.outlookNotUsed));
    if (facts.usesOutlook && facts.newOutlookRuns) findings.push_back(problem(texts.groupware.newOutlook));
    if (facts.usesNotes) appendClasses(facts.notes, texts.classes, findings);
    else findings.push_back(ok(texts.groupware.notesNotUsed));
    return findings;
}

}

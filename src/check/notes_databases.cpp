#include "check/notes_databases.h"

#include "automation/text.h"
#include "check/registry_view.h"
#include "common/files.h"
#include "common/registry.h"
#include "lotus/installation.h"

namespace hublink::check {

namespace {

using automation::equalIgnoringCase;

// Hublink's own, whatever the settings say of them.
bool isOwn(const std::wstring& file)
{
    return equalIgnoringCase(file, notesHistoryDatabase) || equalIgnoringCase(file, notesSettingsDatabase);
}

bool isComplete(const std::wstring& path)
{
    return path.find(L':') != std::wstring::npos || path.starts_with(L"\\\\");
}

NotesDatabase databaseFacts(const LotusBaseRef& base, const NotesDataFacts& data, const std::wstring& programFolder)
{
    NotesDatabase facts;
    if (!base.Server.empty()) return facts;
    facts.file = base.Base;
    facts.isThere = FileExist(isComplete(facts.file) ? facts.file : data.folder + L"\\" + facts.file);
    facts.isCopied = isOwn(facts.file) && data.folderIsThere && FileExist(programFolder + L"\\" + facts.file);
    return facts;
}

void judge(const NotesDatabase& database, const AdvisedText<1>& missing, const NotesDataTexts& texts,
           Findings& findings)
{
    if (database.file.empty()) return;
    const Words name = isOwn(database.file) ? Words(database.file) : personal(database.file);
    if (database.isThere) findings.push_back(ok(texts.database, name));
    else if (database.isCopied) findings.push_back(note(texts.copied, name));
    else findings.push_back(problem(missing, name));
}

}

NotesDataFacts notesDataFacts(const LotusConfiguration& settings, const std::wstring& programFolder)
{
    NotesDataFacts facts;
    facts.folder = notesFolders().data;
    if (facts.folder == registryNoText) facts.folder.clear();
    facts.folderIsThere = !facts.folder.empty() && isFolder(facts.folder);
    facts.history = databaseFacts(settings.LotusCallLog, facts, programFolder);
    facts.log = databaseFacts(settings.LotusPersonalLog, facts, programFolder);
    return facts;
}

Findings notesDataFindings(const NotesDataFacts& facts, const NotesDataTexts& texts)
{
    if (facts.history.file.empty() && facts.log.file.empty()) return {};
    if (facts.folder.empty()) return {note(texts.folderUnknown)};
    if (!facts.folderIsThere) return {problem(texts.folderMissing, path(facts.folder))};
    Findings findings{ok(texts.folder, path(facts.folder))};
    judge(facts.history, texts.historyMissing, texts, findings);
    judge(facts.log, texts.logMissing, texts, findings);
    return findings;
}

}

#include "check/softphone.h"

#include "check/registry_view.h"
#include "common/files.h"
#include "common/installation.h"
#include "common/program_files.h"
#include "common/registry.h"

namespace hublink::check {

namespace {

bool isText(const std::wstring& value)
{
    return !value.empty() && value != registryNoText;
}

std::wstring folderIn(REGSAM view)
{
    return textInView(HKEY_LOCAL_MACHINE, softphoneKey, L"Path", view);
}

Findings folderFindings(const SoftphoneFacts& facts, const SoftphoneTexts& texts)
{
    if (facts.hasUnusableFolder) return {problem(texts.folderUnreadable)};
    if (!isText(facts.folder) && !facts.folderInOtherView.empty())
        return {problem(texts.folderInOtherView, path(facts.folderInOtherView))};
    if (facts.folder.empty()) return {problem(texts.noFolder)};
    if (!isText(facts.folder)) return {problem(texts.folderUnreadable)};
    if (!facts.folderIsThere) return {problem(texts.folderMissing, path(facts.folder))};
    Findings findings{ok(texts.folder, path(facts.folder))};
    if (!facts.programIsThere) findings.push_back(note(texts.programMissing, path(facts.folder)));
    return findings;
}

}

SoftphoneFacts softphoneFacts(const Configuration& installation)
{
    SoftphoneFacts facts{installation.szPathPavex, installation.szServer, installation.szUserName, false, L""};
    // On a 32-bit Windows both parts are the same one.
    facts.hasUnusableFolder = !isText(facts.folder) && !folderIn(0).empty();
    if (!facts.hasUnusableFolder) facts.folderInOtherView = folderIn(KEY_WOW64_64KEY);
    facts.folderIsThere = isText(facts.folder) && isFolder(facts.folder);
    facts.programIsThere = facts.folderIsThere && FileExist(facts.folder + L"\\" + softphoneProgram);
    return facts;
}

Findings softphoneFindings(const SoftphoneFacts& facts, const SoftphoneTexts& texts)
{
    Findings findings = folderFindings(facts, texts);
    findings.push_back(isText(facts.server) ? ok(texts.server, personal(facts.server)) : note(texts.noServer));
    findings.push_back(isText(facts.user) ? ok(texts.user, personal(facts.user)) : note(texts.noUser));
    return findings;
}

}

#include "check/rights.h"

#include "automation/owners.h"
#include "check/registry_view.h"
#include "common/files.h"
#include "outlook/settings.h"

namespace hublink::check {

namespace {

Access accessTo(const std::wstring& path, DWORD rights)
{
    const DWORD attributes = GetFileAttributesW(path.c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES) return Access::missing;
    const bool isFolder = (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
    if (!isFolder && (attributes & FILE_ATTRIBUTE_READONLY) != 0) return Access::refused;
    const automation::Handle handle = automation::ownedIfValid(
        CreateFileW(path.c_str(), rights, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                    OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr));
    return handle ? Access::writable : Access::refused;
}

std::wstring folderOf(const std::wstring& file)
{
    return file.substr(0, file.find_last_of(L'\\'));
}

void judge(Access access, const std::wstring& place, const AdvisedText<1>& refused, const RightsTexts& texts,
           Findings& findings)
{
    if (access == Access::writable) findings.push_back(ok(texts.writable, path(place)));
    if (access == Access::refused) findings.push_back(problem(refused, path(place)));
}

}

Access accessToFolder(const std::wstring& folder)
{
    if (!isFolder(folder)) return FileExist(folder) ? Access::fileInPlace : Access::missing;
    return accessTo(folder, FILE_ADD_FILE);
}

Access accessToFile(const std::wstring& file)
{
    if (isFolder(file)) return Access::missing;
    // Not the right to write data itself: whoever asks for that is in the way of others.
    // Who has the one has the other.
    return accessTo(file, FILE_WRITE_EA | FILE_WRITE_ATTRIBUTES);
}

RightsFacts rightsFacts(const ProgramSettings& settings, const std::wstring& connectorFolder,
                        const std::wstring& iniFile, const std::wstring& mapFile)
{
    RightsFacts facts;
    facts.connectorFolder = connectorFolder;
    facts.connector = accessToFolder(connectorFolder);
    facts.iniFile = iniFile;
    facts.ini = accessToFile(facts.iniFile);
    facts.mapFile = mapFile;
    facts.mapStore = accessToFile(mapFile);
    facts.mapFolder = folderOf(mapFile);
    facts.map = accessToFolder(facts.mapFolder);
    // The map server makes its own folder, in the one above.
    if (facts.map == Access::missing && accessToFolder(folderOf(facts.mapFolder)) == Access::refused)
        facts.map = Access::refused;
    facts.registersExtension = settings.general().bgWithOutlook && !settings.outlook().szRegisteDllExtension.empty();
    facts.extensionKeyIsWritable = keyIsWritable(HKEY_LOCAL_MACHINE, extensionsKey);
    return facts;
}

Findings rightsFindings(const RightsFacts& facts, const RightsTexts& texts)
{
    Findings findings;
    // Where the ini file is there, nothing is put into its folder any more.
    if (facts.ini == Access::missing)
        judge(facts.connector, facts.connectorFolder, texts.connectorFolder, texts, findings);
    if (facts.ini == Access::writable) findings.push_back(ok(texts.writable, path(facts.iniFile)));
    if (facts.ini == Access::refused) findings.push_back(note(texts.iniFile, path(facts.iniFile)));
    if (facts.map == Access::missing && !facts.mapFolder.empty())
        findings.push_back(ok(texts.madeWhenNeeded, path(facts.mapFolder)));
    if (facts.map == Access::fileInPlace)
        findings.push_back(problem(texts.fileInPlaceOfMapFolder, path(facts.mapFolder)));
    judge(facts.map, facts.mapFolder, texts.mapFolder, texts, findings);
    judge(facts.mapStore, facts.mapFile, texts.mapFile, texts, findings);
    if (facts.registersExtension)
        findings.push_back(facts.extensionKeyIsWritable ? ok(texts.extensionKeyWritable) : note(texts.extensionKey));
    findings.push_back(ok(texts.noLogFile));
    return findings;
}

}

#include "lotus/installation.h"

#include "common/error_trap.h"
#include "common/files.h"
#include "common/registry.h"

namespace hublink {

namespace {

constexpr const wchar_t* release5 = L"SOFTWARE\\Lotus\\Notes\\5.0";
constexpr const wchar_t* release4 = L"SOFTWARE\\Lotus\\Notes\\4.0";

constexpr const wchar_t* addIn = L"ConnectorIni.dll";
constexpr const wchar_t* settingsDatabase = L"pavexconnectorconfig.nsf";
constexpr const wchar_t* historyDatabase = L"pavexhistory.nsf";

std::wstring readFolder(const wchar_t* key, const wchar_t* value)
{
    return RegGetString(HKEY_LOCAL_MACHINE, key, value);
}

}

void InstallLotusDatabases(const LotusSession& session)
{
    // A value that is missing is no empty one: a key of release 5 holds without a "Path".
    std::wstring programPath = readFolder(release5, L"Path");
    const wchar_t* const release = programPath.empty() ? release4 : release5;
    if (programPath.empty()) programPath = readFolder(release4, L"Path");
    const std::wstring dataPath = readFolder(release, L"DataPath");
    const std::wstring source = session.host.programFolder();
    if (!programPath.empty()) CopieFileIfNotExist(programPath, addIn, source);
    if (dataPath.empty() || dataPath == registryNoText) return;
    CopieFileIfNotExist(dataPath, settingsDatabase, source);
    CopieFileIfNotExist(dataPath, historyDatabase, source);
    AddDatabasesToWorkspace();
}

void AddDatabasesToWorkspace()
{
    trapErrors([] {
        const automation::Object workspace = notesWorkspace();
        workspace.call(L"AddDatabase", {L"", historyDatabase});
        workspace.call(L"AddDatabase", {L"", settingsDatabase});
    });
}

}

#include "lotus/installation.h"

#include "common/error_trap.h"
#include "common/files.h"
#include "common/registry.h"

namespace hublink {

namespace {

constexpr const wchar_t* release5 = L"SOFTWARE\\Lotus\\Notes\\5.0";
constexpr const wchar_t* release4 = L"SOFTWARE\\Lotus\\Notes\\4.0";

constexpr const wchar_t* addIn = L"ConnectorIni.dll";

std::wstring readFolder(const wchar_t* key, const wchar_t* value)
{
    return RegGetString(HKEY_LOCAL_MACHINE, key, value);
}

}

NotesFolders notesFolders()
{
    // A value that is missing is no empty one: a key of release 5 holds without a "Path".
    std::wstring program = readFolder(release5, L"Path");
    const wchar_t* const release = program.empty() ? release4 : release5;
    if (program.empty()) program = readFolder(release4, L"Path");
    return {program, readFolder(release, L"DataPath")};
}

void InstallLotusDatabases(const LotusSession& session)
{
    const NotesFolders folders = notesFolders();
    const std::wstring source = session.host.programFolder();
    if (!folders.program.empty()) CopieFileIfNotExist(folders.program, addIn, source);
    if (folders.data.empty() || folders.data == registryNoText) return;
    CopieFileIfNotExist(folders.data, notesSettingsDatabase, source);
    CopieFileIfNotExist(folders.data, notesHistoryDatabase, source);
    AddDatabasesToWorkspace();
}

void AddDatabasesToWorkspace()
{
    trapErrors([] {
        const automation::Object workspace = notesWorkspace();
        workspace.call(L"AddDatabase", {L"", notesHistoryDatabase});
        workspace.call(L"AddDatabase", {L"", notesSettingsDatabase});
    });
}

}

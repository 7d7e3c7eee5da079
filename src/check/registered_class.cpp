#include "check/registered_class.h"

#include "automation/com_ptr.h"
#include "check/registry_view.h"
#include "common/files.h"
#include "common/text.h"

#include <objbase.h>
#include <objidl.h>

#include <algorithm>

namespace hublink::check {

namespace {

using automation::ComPtr;

struct Server {
    std::wstring command;
    bool isInProcess = false;
};

Server serverIn(REGSAM view, const std::wstring& classId)
{
    const std::wstring key = L"CLSID\\" + classId;
    Server server{textInView(HKEY_CLASSES_ROOT, key + L"\\LocalServer32", nullptr, view)};
    if (!server.command.empty()) return server;
    return {textInView(HKEY_CLASSES_ROOT, key + L"\\InprocServer32", nullptr, view), true};
}

std::wstring textOf(const CLSID& classId)
{
    wchar_t text[64];
    StringFromGUID2(classId, text, 64);
    return text;
}

// Asks COM's table of running objects, not the program itself.
bool isOnRunningTable(const std::wstring& classId)
{
    ComPtr<IRunningObjectTable> table;
    ComPtr<IMoniker> name;
    return SUCCEEDED(GetRunningObjectTable(0, table.receive())) &&
           SUCCEEDED(CreateItemMoniker(L"!", classId.c_str(), name.receive())) && table->IsRunning(name.get()) == S_OK;
}

bool isSpace(wchar_t c)
{
    return c == L' ' || c == L'\t';
}

bool namesFolder(const std::wstring& file)
{
    return file.find_first_of(L"\\/") != std::wstring::npos;
}

bool isFile(const std::wstring& path)
{
    return FileExist(path) && !isFolder(path);
}

std::wstring searchedFolders()
{
    wchar_t system[MAX_PATH];
    wchar_t windows[MAX_PATH];
    GetSystemDirectoryW(system, MAX_PATH);
    GetWindowsDirectoryW(windows, MAX_PATH);
    std::wstring path(32'767, L'\0'); // the longest variable
    path.resize(GetEnvironmentVariableW(L"PATH", path.data(), static_cast<DWORD>(path.size())));
    return std::wstring(system) + L";" + windows + L";" + path;
}

// One without a folder is looked for where Windows would find it, and not where this program was started.
bool isThere(const std::wstring& file)
{
    if (namesFolder(file)) return isFile(file);
    wchar_t found[MAX_PATH];
    return SearchPathW(searchedFolders().c_str(), file.c_str(), L".exe", MAX_PATH, found, nullptr) > 0;
}

// Where the file's name ends when no file tells: behind its extension, or at the first blank.
std::size_t endOfProgram(const std::wstring& command)
{
    const std::wstring text = lowerCase(command);
    const std::wstring extension = L".exe";
    for (std::size_t at = text.find(extension); at != std::wstring::npos; at = text.find(extension, at + 1)) {
        const std::size_t end = at + extension.size();
        if (end == text.size() || isSpace(text[end])) return end;
    }
    return std::min(command.find_first_of(L" \t"), command.size());
}

}

std::wstring fileOfCommand(const std::wstring& command)
{
    if (command.starts_with(L'"')) return command.substr(1, command.find(L'"', 1) - 1);
    // Without quotes Windows tries each blank in turn as the end of the file's name.
    for (std::size_t end = 0; end <= command.size(); ++end) {
        if (end < command.size() && !isSpace(command[end])) continue;
        const std::wstring file = command.substr(0, end);
        for (const std::wstring& each : {file, file + L".exe"})
            if (namesFolder(each) && isFile(each)) return each;
    }
    return command.substr(0, endOfProgram(command));
}

ClassFacts classFacts(const wchar_t* progId)
{
    ClassFacts facts;
    facts.name = progId;
    CLSID classId;
    if (FAILED(CLSIDFromProgID(progId, &classId))) return facts;
    facts.isRegistered = true;
    const std::wstring id = textOf(classId);
    Server server = serverIn(0, id);
    if (server.command.empty()) {
        server = serverIn(KEY_WOW64_64KEY, id);
        facts.isIn64BitPart = !server.command.empty();
    }
    facts.isInProcess = server.isInProcess;
    // A library has no arguments.
    const bool isWhole = server.isInProcess && !server.command.starts_with(L'"');
    facts.server = isWhole ? server.command : fileOfCommand(server.command);
    facts.serverIsThere = !facts.server.empty() && isThere(facts.server);
    facts.isOffered = isOnRunningTable(id);
    return facts;
}

Findings classFindings(const ClassFacts& facts, const ClassTexts& texts)
{
    if (!facts.isRegistered) return {problem(texts.notRegistered, facts.name)};
    if (facts.server.empty()) return {problem(texts.withoutServer, facts.name)};
    const Words file = path(facts.server);
    if (facts.isInProcess && facts.isIn64BitPart) return {problem(texts.inProcess64, facts.name, file)};
    // A library without a folder is the system's to find.
    if (!facts.serverIsThere && (namesFolder(facts.server) || !facts.isInProcess))
        return {problem(texts.serverMissing, facts.name, file)};
    Findings findings;
    if (facts.isInProcess) findings.push_back(ok(texts.inProcess, facts.name, file));
    else if (facts.isIn64BitPart) findings.push_back(ok(texts.registered64, facts.name, file));
    else findings.push_back(ok(texts.registered, facts.name, file));
    if (facts.isOffered) findings.push_back(ok(texts.offered, facts.name));
    return findings;
}

}

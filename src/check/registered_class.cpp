#include "check/registered_class.h"

#include "automation/com_ptr.h"
#include "check/registry_view.h"
#include "common/files.h"

#include <objbase.h>
#include <objidl.h>

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

}

std::wstring fileOfCommand(const std::wstring& command)
{
    if (command.starts_with(L'"')) return command.substr(1, command.find(L'"', 1) - 1);
    // Without quotes Windows tries each blank in turn as the end of the file's name.
    for (std::size_t end = 0; end <= command.size(); ++end) {
        if (end < command.size() && !isSpace(command[end])) continue;
        const std::wstring file = command.substr(0, end);
        for (const std::wstring& each : {file, file + L".exe"})
            if (FileExist(each) && !isFolder(each)) return each;
    }
    return command.substr(0, command.find(L' '));
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
    facts.server = fileOfCommand(server.command);
    facts.serverIsThere = !facts.server.empty() && FileExist(facts.server);
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
    const bool namesFolder = facts.server.find(L'\\') != std::wstring::npos;
    if (!facts.serverIsThere && (namesFolder || !facts.isInProcess))
        return {problem(texts.serverMissing, facts.name, file)};
    Findings findings;
    if (facts.isInProcess) findings.push_back(ok(texts.inProcess, facts.name, file));
    else if (facts.isIn64BitPart) findings.push_back(ok(texts.registered64, facts.name, file));
    else findings.push_back(ok(texts.registered, facts.name, file));
    if (facts.isOffered) findings.push_back(ok(texts.offered, facts.name));
    return findings;
}

}

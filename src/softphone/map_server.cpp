#include "softphone/map_server.h"

#include "automation/error.h"
#include "automation/milliseconds.h"
#include "automation/owners.h"
#include "common/program_files.h"

namespace hublink {

using automation::AutomationError;
using automation::Object;

namespace {

constexpr const wchar_t* progId = L"PavexConvId.OrvelConvertId";
constexpr automation::Milliseconds registrationTimeout = 10'000;

bool isNotRegistered(HRESULT code)
{
    return code == REGDB_E_CLASSNOTREG || code == CO_E_CLASSSTRING ||
           code == HRESULT_FROM_WIN32(ERROR_FILE_NOT_FOUND) || code == HRESULT_FROM_WIN32(ERROR_PATH_NOT_FOUND);
}

// Whether the map server beside the program registered itself.
bool registerServer(const std::wstring& programFolder)
{
    const std::wstring program = programFolder + L"\\" + mapServerProgram;
    std::wstring command = L"\"" + program + L"\" /RegServer";
    STARTUPINFOW start{};
    start.cb = sizeof start;
    PROCESS_INFORMATION process{};
    if (!CreateProcessW(program.c_str(), command.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &start,
                        &process))
        return false;
    const automation::Handle thread(process.hThread);
    const automation::Handle server(process.hProcess);
    DWORD result = ERROR_TIMEOUT;
    if (WaitForSingleObject(server.get(), registrationTimeout) == WAIT_OBJECT_0)
        GetExitCodeProcess(server.get(), &result);
    return result == 0;
}

}

Object createIdentifierMap(const Host& host)
try {
    return Object::create(progId);
} catch (const AutomationError& error) {
    if (!isNotRegistered(error.code()) || !registerServer(host.programFolder())) throw;
    return Object::create(progId);
}

}

// PavexConvId.exe: the identifier map as a local COM server without windows.
#include "automation/apartment.h"
#include "automation/call_permission.h"
#include "automation/process_arguments.h"
#include "automation/process_protection.h"
#include "automation/text.h"
#include "convid/class_identity.h"
#include "convid/command_line.h"
#include "convid/server_process.h"

namespace {

using namespace convid;
namespace server = automation::server;

constexpr int failed = 1;
constexpr int wrongCommandLine = 2;
constexpr automation::Milliseconds firstClientTimeout = 60'000;

// One line for whoever started the program: on its error output, or for a
// debugger where it has none.
void report(const std::wstring& text)
{
    const std::wstring line = L"PavexConvId: " + text + L"\r\n";
    const HANDLE errors = GetStdHandle(STD_ERROR_HANDLE);
    const std::string bytes = automation::toAnsi(line);
    DWORD written = 0;
    const bool isWritten = errors && errors != INVALID_HANDLE_VALUE &&
                           WriteFile(errors, bytes.data(), static_cast<DWORD>(bytes.size()), &written, nullptr);
    if (!isWritten) OutputDebugStringW(line.c_str());
}

int carryOut(Task task)
{
    switch (task) {
    case Task::registerServer: server::registerClass(classRegistration, server::programPath()); return 0;
    case Task::unregisterServer: server::unregisterClass(classRegistration); return 0;
    case Task::serve: {
        ServerProcess process;
        const automation::Apartment apartment;
        automation::permitCallsOfOwnUserOnly(automation::StartsServers::no);
        process.run(firstClientTimeout);
        return 0;
    }
    case Task::wrong: break;
    }
    report(L"usage: PavexConvId /RegServer | /UnregServer | -Embedding");
    return wrongCommandLine;
}

std::wstring hex(HRESULT code)
{
    wchar_t text[16];
    wsprintfW(text, L"0x%08lX", static_cast<unsigned long>(code));
    return text;
}

}

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR, int)
try {
    automation::protectProcess();
    return carryOut(taskOf(automation::processArguments()));
} catch (const automation::AutomationError& error) {
    report(error.member() + L" failed with " + hex(error.code()));
    return failed;
} catch (const std::exception& error) {
    report(automation::toWide(error.what()));
    return failed;
}

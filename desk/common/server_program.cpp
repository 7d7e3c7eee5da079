#include "desk/common/server_program.h"

#include "automation/apartment.h"
#include "automation/owners.h"
#include "automation/process_arguments.h"
#include "desk/common/running_program.h"
#include "desk/common/text.h"

#include <windows.h>

namespace desk {

namespace {

namespace server = automation::server;

constexpr DWORD maxRunTime = 3 * 60 * 60 * 1000;   // milliseconds
constexpr DWORD endTimeout = 60 * 1000;            // milliseconds
constexpr int badCommandLine = 1;
constexpr int badStore = 2;
constexpr int otherFault = 3;

int fail(int code, const std::string& text)
{
    const std::string line = text + "\n";
    DWORD written = 0;
    WriteFile(GetStdHandle(STD_ERROR_HANDLE), line.data(), static_cast<DWORD>(line.size()), &written, nullptr);
    return code;
}

std::vector<std::wstring> commandLine()
{
    std::vector<std::wstring> arguments = automation::processArguments();
    for (std::wstring& argument : arguments) {
        argument = lowerCase(argument);
        if (argument[0] == L'-') argument[0] = L'/';
    }
    return arguments;
}

// Ends a program that nobody ended: a test that broke off must not leave it
// behind for ever, since a client's death is not told to it everywhere.
DWORD WINAPI watch(void* mainThread) noexcept
{
    Sleep(maxRunTime);
    PostThreadMessageW(static_cast<DWORD>(reinterpret_cast<DWORD_PTR>(mainThread)), WM_QUIT, 0, 0);
    Sleep(endTimeout);
    TerminateProcess(GetCurrentProcess(), otherFault);
    return 0;
}

// The right to be the one running instance.
class OnlyInstance {
public:
    explicit OnlyInstance(const wchar_t* name)
        : mutex_(CreateMutexW(nullptr, TRUE, (L"hublink-desk-" + std::wstring(name)).c_str())),
          owned_(GetLastError() != ERROR_ALREADY_EXISTS)
    {}
    bool owned() const { return owned_; }

private:
    const automation::Handle mutex_;
    const bool owned_;
};

// One that has gone already need not be waited for.
void waitForEnd(DWORD processId)
{
    const automation::Handle process(OpenProcess(SYNCHRONIZE, FALSE, processId));
    if (process) WaitForSingleObject(process.get(), endTimeout);
}

void serve(const ProgramDescription& description, const PartnerMaker& makePartner)
{
    const OnlyInstance instance(description.name);
    if (!instance.owned()) return;
    const automation::Apartment apartment;
    const automation::Handle watcher(CreateThread(
        nullptr, 0, watch, reinterpret_cast<void*>(static_cast<DWORD_PTR>(GetCurrentThreadId())), 0, nullptr));
    RunningProgram(description, makePartner).run();
}

}

int runProgram(const ProgramDescription& description, const PartnerMaker& makePartner)
try {
    const std::vector<std::wstring> arguments = commandLine();
    const std::wstring argument = arguments.size() == 1 ? arguments[0] : L"";
    const bool isSuccessor = arguments.size() == 2 && arguments[0] == lowerCase(successorArgument);
    if (isSuccessor) waitForEnd(numberOf(arguments[1], "process identifier"));
    if (argument == L"/regserver")
        for (const auto& each : description.classes) server::registerClass(each, server::programPath());
    else if (argument == L"/unregserver")
        for (const auto& each : description.classes) server::unregisterClass(each);
    else if (arguments.empty() || argument == L"/embedding" || isSuccessor) serve(description, makePartner);
    else return fail(badCommandLine, "unknown command line: /RegServer, /UnregServer, -Embedding or nothing");
    return 0;
} catch (const BadStore& error) {
    return fail(badStore, error.what());
} catch (const std::exception& error) {
    return fail(otherFault, error.what());
}

}

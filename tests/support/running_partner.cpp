#include "support/running_partner.h"

#include "automation/server/registration.h"
#include "desk/common/control_pipe.h"
#include "desk/common/text.h"

#include <objbase.h>

#include <stdexcept>

namespace support {

Process::Process(const std::wstring& commandLine, const std::wstring& errorFile)
{
    std::wstring line = commandLine;
    SECURITY_ATTRIBUTES inherited{sizeof inherited, nullptr, TRUE};
    const HANDLE errors = errorFile.empty() ? nullptr
                                            : CreateFileW(errorFile.c_str(), GENERIC_WRITE, FILE_SHARE_READ, &inherited,
                                                          CREATE_ALWAYS, 0, nullptr);
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    if (errors) {
        startup.dwFlags = STARTF_USESTDHANDLES;
        startup.hStdError = errors;
    }
    PROCESS_INFORMATION information{};
    const BOOL started = CreateProcessW(nullptr, line.data(), nullptr, nullptr, errors != nullptr, 0, nullptr, nullptr,
                                        &startup, &information);
    if (errors) CloseHandle(errors);
    if (!started) throw std::runtime_error("a process cannot be started");
    CloseHandle(information.hThread);
    process_ = information.hProcess;
}

Process::~Process()
{
    CloseHandle(process_);
}

DWORD Process::exitCode(DWORD milliseconds) const
{
    const DWORD start = GetTickCount();
    DWORD passed = 0;
    while (passed < milliseconds &&
           MsgWaitForMultipleObjects(1, &process_, FALSE, milliseconds - passed, QS_ALLINPUT) != WAIT_OBJECT_0) {
        MSG message;
        while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) DispatchMessageW(&message);
        passed = GetTickCount() - start;
    }
    DWORD code = stillRuns;
    GetExitCodeProcess(process_, &code);
    return code;
}

void Process::kill() const
{
    TerminateProcess(process_, 1);
    WaitForSingleObject(process_, INFINITE);
}

bool soon(const std::function<bool()>& condition, DWORD milliseconds)
{
    for (const DWORD start = GetTickCount(); GetTickCount() - start < milliseconds; Sleep(10))
        if (condition()) return true;
    return condition();
}

namespace {

// The registered program's command line, "" for none.
std::wstring registeredProgram(const wchar_t* progId)
{
    CLSID classId;
    wchar_t text[64];
    std::wstring line(MAX_PATH, L'\0');
    LONG size = MAX_PATH * sizeof(wchar_t);
    if (FAILED(CLSIDFromProgID(progId, &classId)) || !StringFromGUID2(classId, text, 64)) return L"";
    const std::wstring key = std::wstring(L"CLSID\\") + text + L"\\LocalServer32";
    if (RegQueryValueW(HKEY_CLASSES_ROOT, key.c_str(), line.data(), &size) != ERROR_SUCCESS) return L"";
    return line.c_str();
}

void require(bool done, const PartnerProgram& partner, const char* what)
{
    if (!done) throw std::runtime_error(desk::utf8(partner.file) + " " + what);
}

}

RunningPartner::RunningPartner(const PartnerProgram& partner, std::string_view store)
    : partner_(partner), oneAtATime_(CreateMutexW(nullptr, FALSE, (L"desk-test-" + std::wstring(partner.pipe)).c_str()))
{
    WaitForSingleObject(oneAtATime_, INFINITE);
    registeredBefore_ = registeredProgram(partner.progId);
    const std::wstring test = automation::server::programPath();
    const std::wstring built = test.substr(0, test.rfind(L'\\') + 1) + partner.file;
    require(CopyFileW(built.c_str(), program().c_str(), FALSE), partner, "is not beside the test");
    require(Process(program() + L" /RegServer").exitCode() == 0, partner, "is not registered");
    if (!store.empty()) writeFile(storeFile(), store);
    start();
}

void RunningPartner::start()
{
    process_ = std::make_unique<Process>(program() + L" -Embedding");
    ask(L"ping");
}

RunningPartner::~RunningPartner()
{
    if (process_->exitCode(0) == Process::stillRuns) {
        try {
            ask(L"exit");
        } catch (const std::runtime_error&) {
            process_->kill();
        }
        if (process_->exitCode() == Process::stillRuns) process_->kill();
    }
    process_.reset();
    Process(program() + L" /UnregServer").exitCode();
    if (!registeredBefore_.empty()) Process(registeredBefore_ + L" /RegServer").exitCode();
    ReleaseMutex(oneAtATime_);
    CloseHandle(oneAtATime_);
}

std::wstring RunningPartner::ask(std::wstring_view request) const
{
    return desk::ask(partner_.pipe, request);
}

}

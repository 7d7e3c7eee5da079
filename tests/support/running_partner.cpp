#include "support/running_partner.h"

#include "desk/common/control_pipe.h"
#include "desk/common/text.h"

#include <objbase.h>

#include <stdexcept>

namespace support {

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
    line.resize(wcslen(line.c_str()));
    return line;
}

void require(bool done, const PartnerClass& partner, const char* what)
{
    if (!done) throw std::runtime_error(desk::utf8(partner.file) + " " + what);
}

}

RunningPartner::RunningPartner(const PartnerClass& partner, std::string_view store)
    : partner_(partner), oneAtATime_(CreateMutexW(nullptr, FALSE, (L"desk-test-" + std::wstring(partner.pipe)).c_str()))
{
    WaitForSingleObject(oneAtATime_.get(), INFINITE);
    registeredBefore_ = registeredProgram(partner.progId);
    require(CopyFileW(pathBesideTests(partner.file).c_str(), program().c_str(), FALSE), partner,
            "is not beside the test");
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
    ReleaseMutex(oneAtATime_.get());
}

std::wstring RunningPartner::ask(std::wstring_view request) const
{
    return desk::ask(partner_.pipe, request);
}

}

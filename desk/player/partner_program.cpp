#include "desk/player/partner_program.h"

#include "automation/text.h"
#include "desk/common/control_pipe.h"
#include "desk/common/text.h"
#include "desk/player/screen.h"

#include <algorithm>
#include <stdexcept>

namespace desk::player {

namespace {

constexpr DWORD programTimeout = 20'000; // milliseconds, for a program to start or end

}

std::wstring PartnerProgram::path() const
{
    return std::wstring(partnersFolder) + L"\\" + file_;
}

std::wstring PartnerProgram::storePath() const
{
    return std::wstring(partnersFolder) + L"\\" + name_ + L".store.txt";
}

void PartnerProgram::install() const
{
    makeFolder(partnersFolder);
    removeFile(storePath());
    copyFile(ownFolder() + L"\\" + file_, path());
    runWith(L"/RegServer");
}

void PartnerProgram::uninstall()
{
    end();
    runWith(L"/UnregServer");
}

void PartnerProgram::runWith(const wchar_t* argument) const
{
    const Process run(path(), argument);
    if (!run.ended(programTimeout) || run.exitCode() != 0)
        throw std::runtime_error(automation::toAnsi(file_) + " fails with " + automation::toAnsi(argument));
}

void PartnerProgram::start()
{
    process_ = Process(path(), L"");
    waitUntilServing();
}

// A client that sees the program's name among the processes may create an object
// before the class is offered: then COM starts a second process, and which of the
// two goes on is a matter of luck. The other one's end is waited for: it would serve
// the next test, with what it has read now.
void PartnerProgram::waitUntilServing()
{
    const std::wstring answer = desk::ask(name_, L"ping", programTimeout);
    const DWORD serving = numberOf(answer.substr(answer.find(L' ') + 1), "process identifier");
    if (serving == process_.id()) return;
    if (!process_.ended(programTimeout)) throw std::runtime_error(automation::toAnsi(file_) + " runs twice");
    process_ = Process::existing(serving);
}

void PartnerProgram::restart()
{
    ask(L"restart");
    if (!process_.ended(programTimeout)) throw std::runtime_error(automation::toAnsi(file_) + " does not start anew");
    waitUntilServing();
}

void PartnerProgram::start(std::string_view records)
{
    writeFile(storePath(), records);
    start();
}

void PartnerProgram::close()
{
    ask(L"exit");
    if (!process_.ended(programTimeout)) throw std::runtime_error(automation::toAnsi(file_) + " does not close");
}

void PartnerProgram::end()
{
    if (!process_.running()) return;
    // One that lives on for its clients dies: killed, it would leave its class behind.
    for (const wchar_t* request : {L"exit", L"die"}) {
        try {
            desk::ask(name_, request);
        } catch (const std::runtime_error&) {
            // It died, or hangs: it is ended below.
        }
        if (process_.ended(5000)) return;
    }
    process_.kill();
}

std::wstring PartnerProgram::ask(std::wstring_view request, DWORD timeout) const
{
    const std::wstring response = desk::ask(name_, request, timeout);
    if (response.starts_with(L"error:"))
        throw std::runtime_error(automation::toAnsi(request) + ": " + automation::toAnsi(response));
    return response;
}

bool PartnerProgram::shows(const std::wstring& title, bool exactly) const
{
    return waitUntil(
        [&] {
            const auto titles = windowTitles(process_.id());
            return std::any_of(titles.begin(), titles.end(), [&](const std::wstring& each) {
                return exactly ? each == title : each.starts_with(title);
            });
        },
        programTimeout);
}

}

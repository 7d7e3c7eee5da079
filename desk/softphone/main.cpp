// pavex.exe: the softphone as a program, with its window, its class
// "Pavex.Application" and its control commands.
#include "automation/catch_all.h"
#include "automation/owners.h"
#include "desk/common/control_pipe.h"
#include "desk/common/server_program.h"
#include "desk/softphone/control.h"
#include "desk/softphone/store.h"
#include "desk/softphone/window.h"

namespace {

using namespace desk::softphone;

constexpr wchar_t pipeName[] = L"pavex";
constexpr DWORD quitTimeout = 5'000; // milliseconds
constexpr DWORD diePatience = 2'000;   // milliseconds

// A subscriber that does not answer must not keep the program for ever. While
// the main thread waits for one, it takes no posted messages, but sent ones.
DWORD WINAPI watchEnd(void* window) noexcept
{
    Sleep(quitTimeout);
    SendMessageTimeoutW(static_cast<HWND>(window), Window::giveUpMessage, 0, 0, SMTO_NORMAL, diePatience, nullptr);
    TerminateProcess(GetCurrentProcess(), 1);
    return 0;
}

// The answer to the request in progress comes first: the pipe takes one
// request after the other. Where nobody is answered any more the program ends already.
DWORD WINAPI requestExit(void*) noexcept
{
    return automation::catchAll(DWORD{0}, [] {
        desk::ask(pipeName, L"exit");
        return DWORD{0};
    });
}

void startThread(LPTHREAD_START_ROUTINE run, void* argument)
{
    const automation::Handle thread(CreateThread(nullptr, 0, run, argument, 0, nullptr));
}

class Pavex final : public desk::Partner {
public:
    explicit Pavex(desk::Program& program)
        : program_(program), softphone_(program.recorder()),
          window_(softphone_, {[this] { end(); }, [this] { program_.recorder().die(); }}), control_(softphone_, [this] {
              limitEnd();
              startThread(requestExit, nullptr);
          })
    {
        softphone_.phone().changed = [this] {
            program_.changed();
            window_.refresh();
        };
        softphone_.eventWaits = [this] { window_.later([this] { softphone_.deliver(); }); };
    }

    // The user has quit. The class is offered no more, so that nobody starts
    // with a softphone that ends.
    ~Pavex() override
    {
        limitEnd();
        softphone_.quit();
        softphone_.deliver();
        softphone_.disconnectClients();
    }

    automation::ComPtr<IDispatch> object(const CLSID&) override { return softphone_.application(); }

    void load(const std::vector<desk::StoreRecord>& records) override
    {
        softphone_.phone().contents = contentsOf(records);
        window_.refresh();
    }

    std::vector<desk::StoreRecord> records() const override { return recordsOf(softphone_.phone().contents); }

    std::optional<std::wstring> command(const std::wstring& word, std::wstring_view rest) override
    {
        return control_.command(word, rest);
    }

private:
    void end()
    {
        limitEnd();
        program_.close();
    }

    void limitEnd()
    {
        if (std::exchange(ending_, true)) return;
        startThread(watchEnd, window_.handle());
    }

    desk::Program& program_;
    Softphone softphone_;
    Window window_;
    Control control_;
    bool ending_ = false;
};

}

int WINAPI WinMain(HINSTANCE, HINSTANCE, LPSTR, int)
{
    const desk::ProgramDescription description{
        pipeName, {{progId, applicationClassId, L"Pavex softphone", libraryId}}, L"pavex.store.txt"};
    return desk::runProgram(description, [](desk::Program& program) { return std::make_unique<Pavex>(program); });
}

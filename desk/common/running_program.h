// A partner while it runs: the message window that takes the control requests,
// and the saving of the store. See server_program.h.
#pragma once

#include "automation/server/class_factory.h"
#include "desk/common/control_pipe.h"
#include "desk/common/server_program.h"

namespace desk {

class RunningProgram final : public Program {
public:
    // Loads the store and offers the classes. Throws BadStore, std::runtime_error
    // or AutomationError.
    RunningProgram(const ProgramDescription& description, const PartnerMaker& makePartner);
    ~RunningProgram();

    // Until the end is asked for; then saves and revokes the classes.
    void run();

    Recorder& recorder() noexcept override { return recorder_; }
    void changed() override;
    void close() override;

private:
    static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept;
    LRESULT onMessage(UINT message, WPARAM wParam, LPARAM lParam);
    void makeWindow();
    std::wstring respond(const std::wstring& request);
    std::wstring carryOut(const std::wstring& word, std::wstring_view rest);
    std::wstring reload(std::wstring_view text);
    void answered();
    void endIfPossible();
    void save();
    void saveQuietly();
    void offerClasses();
    void revokeClasses() noexcept;
    void hang(DWORD milliseconds);
    [[noreturn]] void die();
    [[noreturn]] void restart();

    enum class AfterAnswer { nothing, close, die, restart };

    const ProgramDescription description_;
    const std::wstring storePath_;
    Recorder recorder_;
    HWND window_ = nullptr;
    bool dirty_ = false;
    bool ending_ = false;
    DWORD saveDelay_ = 0; // milliseconds
    AfterAnswer after_ = AfterAnswer::nothing;
    std::unique_ptr<Partner> partner_;
    std::vector<std::unique_ptr<automation::server::ClassFactory>> factories_;
    std::unique_ptr<ControlPipe> pipe_;
};

struct BadStore : std::runtime_error {
    using std::runtime_error::runtime_error;
};

}

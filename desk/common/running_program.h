// A partner while it runs: the message window that takes the control requests,
// and the end. See server_program.h.
#pragma once

#include "automation/server/class_factory.h"
#include "desk/common/control_pipe.h"
#include "desk/common/server_program.h"
#include "desk/common/store_keeper.h"

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
    void changed() override { store_.changed(); }
    void close() override;

private:
    static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept;
    LRESULT onMessage(UINT message, WPARAM wParam, LPARAM lParam);
    static HWND makeWindow();
    std::wstring respond(const std::wstring& request);
    std::wstring carryOut(const std::wstring& word, std::wstring_view rest);
    std::wstring reload(std::wstring_view text);
    void answered();
    void endIfPossible();
    void offerClasses();
    void revokeClasses() noexcept;
    void hang(DWORD milliseconds);
    [[noreturn]] void die();
    [[noreturn]] void restart();

    enum class AfterAnswer { nothing, close, die, restart };

    const ProgramDescription description_;
    const HWND window_;
    StoreKeeper store_;
    Recorder recorder_;
    bool ending_ = false;
    AfterAnswer after_ = AfterAnswer::nothing;
    std::unique_ptr<Partner> partner_;
    std::vector<std::unique_ptr<automation::server::ClassFactory>> factories_;
    std::unique_ptr<ControlPipe> pipe_;
};

}

// The program's screen: the main window and a real window for each displayed
// document, in a cascade.
#pragma once

#include "desk/lotus/document_frame.h"
#include "desk/lotus/main_window.h"

#include <map>
#include <memory>

namespace desk::lotus {

class WindowScreen final : public Screen {
public:
    // `quit`: the user closes the main window.
    explicit WindowScreen(std::function<void()> quit);

    // What is shown; it outlives this.
    void watch(Notes& notes);

    void open(WindowId id, const DocumentView& view) override;
    void update(WindowId id, const DocumentView& view) override;
    void close(WindowId id) override;
    void raise(WindowId id) override;
    void comeToForeground(WindowId id) override;
    void leaveForeground() override;
    void updateMain() override;

private:
    // Windows are activated by our own doing, too, which the model knows
    // already; only what the user does shall be told to it.
    class Quiet {
    public:
        explicit Quiet(WindowScreen& screen) : screen_(screen) { ++screen_.quiet_; }
        ~Quiet() { --screen_.quiet_; }
        Quiet(const Quiet&) = delete;
        Quiet& operator=(const Quiet&) = delete;

    private:
        WindowScreen& screen_;
    };

    int freePlace() const;
    HWND windowOf(WindowId id) const;
    void activated(WindowId id);
    void save(WindowId id);

    Notes* notes_ = nullptr;
    unsigned quiet_ = 0;
    std::map<WindowId, std::unique_ptr<DocumentFrame>> frames_;
    MainWindow main_;
};

}

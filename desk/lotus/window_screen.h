// The program's screen: the main window and a real window for each displayed
// document, in a cascade.
#pragma once

#include "desk/lotus/document_frame.h"
#include "desk/lotus/main_window.h"
#include "desk/lotus/outer_frame.h"

#include <map>
#include <memory>
#include <optional>

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
    void moveIntoFrame() override;

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
    HWND outermost(HWND window) const { return frame_ ? frame_->handle() : window; }
    bool isOurs(HWND window) const;
    HWND windowOfOthers() const;
    void activated(WindowId id);
    void save(WindowId id);

    Notes* notes_ = nullptr;
    unsigned quiet_ = 0;
    std::optional<OuterFrame> frame_; // before the windows that lie in it
    std::map<WindowId, std::unique_ptr<DocumentFrame>> frames_;
    MainWindow main_;
};

}

#include "shell/stop_question.h"

#include "common/error_trap.h"
#include "shell/form_window.h"
#include "shell/screen_scale.h"
#include "shell/shutdown.h"

#include <utility>

namespace hublink {

StopQuestion::StopQuestion(FormWindow& window, Shutdown& shutdown, Box box)
    : window_(window), shutdown_(shutdown), box_(std::move(box))
{}

void StopQuestion::Form_MouseMove(int, int, double x, double)
{
    // One question at a time, however often the icon is pressed.
    if (pixelsFromTwips(x) != WM_RBUTTONDOWN || state_ != State::none) return;
    state_ = State::pending;
    // A question inside a call would hold it up; one that may never end is another matter.
    if (shutdown_.isHeldUpByCall()) {
        ask();
        return;
    }
    trapErrors([this] { window_.runOutsideCalls([this] { ask(); }); }, [this] { state_ = State::none; });
}

void StopQuestion::ask()
{
    if (state_ != State::pending) return;
    bool stop = false;
    state_ = State::open;
    trapErrors([&] {
        SetForegroundWindow(window_.handle()); // else the question would not get the focus
        stop = box_(L"Do you want to really stop Hublink ?", MB_YESNO | MB_ICONQUESTION | MB_DEFBUTTON2) == IDYES;
    });
    state_ = State::none;
    if (stop) shutdown_.StopConnector();
}

}

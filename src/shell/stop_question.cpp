#include "shell/stop_question.h"

#include "common/error_trap.h"
#include "shell/form_window.h"
#include "shell/screen_scale.h"
#include "shell/stopping.h"

#include <utility>

namespace hublink {

StopQuestion::StopQuestion(FormWindow& window, Stopping& stopping, Box box)
    : window_(window), stopping_(stopping), box_(std::move(box))
{}

void StopQuestion::Form_MouseMove(int, int, double x, double)
{
    // One question at a time, however often the icon is pressed.
    if (pixelsFromTwips(x) != WM_RBUTTONDOWN || state_ != State::none) return;
    state_ = State::waits;
    // A question inside a call would hold it up; one that may never end is another matter.
    if (stopping_.isHeldUpByCall()) return ask();
    trapErrors([this] { window_.outsideCalls([this] { ask(); }); }, [this] { state_ = State::none; });
}

void StopQuestion::ask()
{
    if (state_ != State::waits) return;
    bool stop = false;
    state_ = State::open;
    trapErrors([&] {
        SetForegroundWindow(window_.handle()); // else the question would not get the focus
        stop = box_(L"Do you want to really stop Hublink ?", MB_YESNO | MB_ICONQUESTION | MB_DEFBUTTON2) == IDYES;
    });
    state_ = State::none;
    if (stop) stopping_.StopConnector();
}

}

// Asks the user whether to stop the program, when the icon is pressed.
#pragma once

#include <windows.h>

#include <functional>
#include <string>

namespace hublink {

class FormWindow;
class Shutdown;

class StopQuestion {
public:
    // `box` shows a message box and returns the answer.
    using Box = std::function<int(const std::wstring& text, UINT flags)>;
    StopQuestion(FormWindow& window, Shutdown& shutdown, Box box);
    StopQuestion(const StopQuestion&) = delete;
    StopQuestion& operator=(const StopQuestion&) = delete;

    // A message of the icon: `x` is the notification code, in twips. A right press
    // opens the question; during a short call to another program, after that call.
    void Form_MouseMove(int button, int shift, double x, double y);

    // Opens the question if one waits.
    void ask();

private:
    FormWindow& window_;
    Shutdown& shutdown_;
    const Box box_;
    enum class State { none, pending, open } state_ = State::none;
};

}

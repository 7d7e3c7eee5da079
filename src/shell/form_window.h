// The form's window: never shown, but a real top-level one, because the
// notification area and the end of a user session address such windows.
#pragma once

#include "automation/milliseconds.h"

#include <windows.h>

#include <deque>
#include <functional>

namespace hublink {

// What the window's messages mean to the form. Nothing may be thrown.
class FormEvents {
public:
    virtual void onSupervisionTick() = 0;
    virtual void onDocumentTick() = 0;
    virtual void Form_MouseMove(int button, int shift, double x, double y) = 0;
    virtual void Form_Terminate() = 0;
    virtual void onSessionEnd() = 0;
    virtual void onLongCallNoticed() = 0; // the program waits in a call to another one, for long by now

protected:
    ~FormEvents() = default;
};

class FormWindow {
public:
    explicit FormWindow(FormEvents& events);
    ~FormWindow();
    FormWindow(const FormWindow&) = delete;
    FormWindow& operator=(const FormWindow&) = delete;

    HWND handle() const noexcept { return window_; }

    // Starts the supervision timer. The document timer runs from the start.
    // Each ticks every 5000 ms, but not inside a call to another program.
    void startSupervision();

    // Runs `work` from the message loop: in order, one at a time, never inside
    // a call to another program.
    void defer(std::function<void()> work);

    // Runs `work` at once or, where no call may go out, from the next message loop or
    // dispatchStopMessages(): inside a call to another program, and inside a message that
    // somebody sent and waits for.
    void runOutsideCalls(std::function<void()> work);

    // Handles those waiting messages by which a user asks for a stop, and what
    // runOutsideCalls() has held back; all others stay in the queue.
    void dispatchStopMessages();

    // Says, from another thread, that the window's thread waits in a long call. Waits a
    // moment for the answer: messages that nobody takes must not pile up.
    static void notifyLongCall(HWND window);

    static constexpr const wchar_t* className = L"Hublink";
    static constexpr UINT_PTR supervisionTimer = 1;
    static constexpr UINT_PTR documentTimer = 3;
    static constexpr automation::Milliseconds tickInterval = 5'000;

private:
    static LRESULT CALLBACK procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept;
    LRESULT handleMessage(UINT message, WPARAM wParam, LPARAM lParam);
    void startTimer(UINT_PTR id);
    void onTimer(UINT_PTR id);
    void onMouseMove(WPARAM wParam, LPARAM lParam);
    void scheduleRetry();
    void retry();
    void runHeldBack();
    void runDeferred();

    FormEvents& events_;
    std::deque<std::function<void()>> deferred_;
    bool isRunningDeferred_ = false;
    std::deque<std::function<void()>> heldBack_; // work that waits until calls may go out
    HWND window_ = nullptr;
};

}

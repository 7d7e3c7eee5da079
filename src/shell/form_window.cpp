#include "shell/form_window.h"

#include "automation/error.h"
#include "automation/outgoing_call.h"
#include "common/error_trap.h"
#include "common/scoped_flag.h"
#include "shell/call_readiness.h"
#include "shell/resources.h"
#include "shell/screen_scale.h"

#include <utility>

namespace hublink {

namespace {

constexpr UINT runDeferredMessage = WM_APP;
constexpr UINT longCallMessage = WM_APP + 1;
constexpr UINT_PTR retryTimer = 2;
constexpr automation::Milliseconds retryInterval = 20;
constexpr automation::Milliseconds longCallTimeout = 1'000;

// In the size in which the notification area shows it: scaled down from the larger
// image it would be blurred. Nothing else shows it, for the form is hidden, and nothing
// else loads it: a shared image keeps the size of its first load.
HICON formIcon(HINSTANCE program)
{
    return static_cast<HICON>(LoadImageW(program, MAKEINTRESOURCEW(IDI_HUBLINK), IMAGE_ICON,
                                         GetSystemMetrics(SM_CXSMICON), GetSystemMetrics(SM_CYSMICON), LR_SHARED));
}

}

FormWindow::FormWindow(FormEvents& events) : events_(events)
{
    const HINSTANCE program = GetModuleHandleW(nullptr);
    WNDCLASSW description{};
    description.lpfnWndProc = procedure;
    description.hInstance = program;
    description.hIcon = formIcon(program);
    description.lpszClassName = className;
    RegisterClassW(&description); // fails harmlessly when it is registered already
    window_ = CreateWindowW(className, L"Hublink", WS_OVERLAPPED, 0, 0, 0, 0, nullptr, nullptr, program, this);
    if (!window_) throw automation::AutomationError(L"CreateWindow", HRESULT_FROM_WIN32(GetLastError()));
    startTimer(documentTimer);
}

FormWindow::~FormWindow()
{
    SetWindowLongPtrW(window_, GWLP_USERDATA, 0);
    DestroyWindow(window_);
}

void FormWindow::startSupervision()
{
    startTimer(supervisionTimer);
}

void FormWindow::startTimer(UINT_PTR id)
{
    if (!SetTimer(window_, id, tickInterval, nullptr))
        throw automation::AutomationError(L"SetTimer", HRESULT_FROM_WIN32(GetLastError()));
}

void FormWindow::defer(std::function<void()> work)
{
    deferred_.push_back(std::move(work));
    PostMessageW(window_, runDeferredMessage, 0, 0);
}

LRESULT CALLBACK FormWindow::procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept
{
    if (message == WM_NCCREATE)
        SetWindowLongPtrW(window, GWLP_USERDATA,
                          reinterpret_cast<LONG_PTR>(reinterpret_cast<CREATESTRUCTW*>(lParam)->lpCreateParams));
    auto* const form = reinterpret_cast<FormWindow*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (!form || !form->window_) return DefWindowProcW(window, message, wParam, lParam);

    LRESULT result = 0;
    trapErrors([&] { result = form->handleMessage(message, wParam, lParam); });
    return result;
}

LRESULT FormWindow::handleMessage(UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message) {
    case WM_TIMER: onTimer(wParam); return 0;
    case WM_MOUSEMOVE: // also the notification icon's callback message
        onMouseMove(wParam, lParam);
        return 0;
    case runDeferredMessage: runDeferred(); return 0;
    case WM_CLOSE: events_.Form_Terminate(); return 0;
    case WM_ENDSESSION:
        if (!wParam) return 0;
        ReplyMessage(0); // no call goes out as long as its sender waits
        events_.onSessionEnd();
        return 0;
    case longCallMessage:
        if (automation::OutgoingCall::inProgress()) events_.onLongCallNoticed();
        return 0;
    default: return DefWindowProcW(window_, message, wParam, lParam);
    }
}

void FormWindow::onTimer(UINT_PTR id)
{
    if (id == retryTimer) {
        KillTimer(window_, retryTimer);
        retry();
    } else if (!automation::OutgoingCall::inProgress()) {
        // A tick may end the program: what is held back is done before, the stop's own work too.
        if (callsMayGoOut()) runHeldBack();
        if (id == supervisionTimer) events_.onSupervisionTick();
        if (id == documentTimer) events_.onDocumentTick();
    }
}

void FormWindow::runOutsideCalls(std::function<void()> work)
{
    if (callsMayGoOut()) {
        work();
        return;
    }
    heldBack_.push_back(std::move(work));
    scheduleRetry();
}

void FormWindow::scheduleRetry()
{
    if (automation::OutgoingCall::inProgress()) SetTimer(window_, retryTimer, retryInterval, nullptr);
    else PostMessageW(window_, WM_TIMER, retryTimer, 0); // as soon as the sender of a message has its answer
}

void FormWindow::retry()
{
    if (!callsMayGoOut()) {
        scheduleRetry();
        return;
    }
    // By a message, for what was held back may show a box and wait for its answer.
    PostMessageW(window_, runDeferredMessage, 0, 0);
    runHeldBack();
}

// One by one: a box that one of them opens lets ticks through, which do the rest.
void FormWindow::runHeldBack()
{
    while (!heldBack_.empty()) {
        const std::function<void()> work = std::move(heldBack_.front());
        heldBack_.pop_front();
        trapErrors(work);
    }
}

void FormWindow::dispatchStopMessages()
{
    MSG message;
    for (const UINT wanted : {UINT{WM_MOUSEMOVE}, UINT{WM_CLOSE}})
        while (PeekMessageW(&message, window_, wanted, wanted, PM_REMOVE)) {
            // The end of the message loop is taken whatever is asked for.
            if (message.message == WM_QUIT) {
                PostQuitMessage(static_cast<int>(message.wParam));
                return;
            }
            DispatchMessageW(&message);
        }
    if (callsMayGoOut()) runHeldBack();
}

void FormWindow::notifyLongCall(HWND window)
{
    DWORD_PTR ignored = 0;
    SendMessageTimeoutW(window, longCallMessage, 0, 0, SMTO_NORMAL, longCallTimeout, &ignored);
}

void FormWindow::onMouseMove(WPARAM wParam, LPARAM lParam)
{
    const double x = twipsFromPixels(static_cast<short>(LOWORD(lParam)));
    const double y = twipsFromPixels(static_cast<short>(HIWORD(lParam)));
    events_.Form_MouseMove(static_cast<int>(wParam & (MK_LBUTTON | MK_RBUTTON)), 0, x, y);
}

void FormWindow::runDeferred()
{
    if (isRunningDeferred_) return; // the work under way is finished first, then the rest
    if (automation::OutgoingCall::inProgress()) {
        scheduleRetry();
        return;
    }
    const ScopedFlag running(isRunningDeferred_);
    while (!deferred_.empty()) {
        const std::function<void()> work = std::move(deferred_.front());
        deferred_.pop_front();
        trapErrors(work);
    }
}

}

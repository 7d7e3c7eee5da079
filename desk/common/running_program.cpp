#include "desk/common/running_program.h"

#include "automation/catch_all.h"
#include "desk/common/text.h"

#include <algorithm>

namespace desk {

namespace {

constexpr UINT requestMessage = WM_APP + 1;  // sent: a request and room for its response
constexpr UINT answeredMessage = WM_APP + 2; // posted: the client has the response
constexpr UINT_PTR saveTimer = 1;
constexpr UINT_PTR endTimer = 2;
constexpr UINT endDelay = 50; // milliseconds

// Who follows a client's work asks for its calls again and again: a big store
// written for each answer would leave the partner no time for the client.
bool isAboutCallsOnly(const std::wstring& request)
{
    return request == L"calls" || request == L"record" || request == L"objects" || request == L"ping";
}

std::wstring inProgramFolder(const wchar_t* file)
{
    const std::wstring program = automation::server::programPath();
    return program.substr(0, program.rfind(L'\\') + 1) + file;
}

}

RunningProgram::RunningProgram(const ProgramDescription& description, const PartnerMaker& makePartner)
    : description_(description), window_(makeWindow()),
      store_(inProgramFolder(description.storeFile), window_, saveTimer)
{
    recorder_.die = [this] {
        store_.saveQuietly(*partner_); // what a client has saved outlives a crash
        die();
    };
    recorder_.hang = [this](DWORD milliseconds) { hang(milliseconds); };
    SetWindowLongPtrW(window_, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
    partner_ = makePartner(*this);
    store_.load(*partner_);
    offerClasses();
    pipe_ = std::make_unique<ControlPipe>(
        description.name,
        [window = window_](const std::wstring& request) {
            std::wstring response = L"error: the program is ending";
            SendMessageW(window, requestMessage, reinterpret_cast<WPARAM>(&request),
                         reinterpret_cast<LPARAM>(&response));
            return response;
        },
        [window = window_] { PostMessageW(window, answeredMessage, 0, 0); });
}

RunningProgram::~RunningProgram()
{
    pipe_.reset();
    factories_.clear();
    partner_.reset();
    DestroyWindow(window_);
}

HWND RunningProgram::makeWindow()
{
    WNDCLASSW windowClass{};
    windowClass.lpfnWndProc = procedure;
    windowClass.hInstance = GetModuleHandleW(nullptr);
    windowClass.lpszClassName = L"HublinkDeskControl";
    RegisterClassW(&windowClass);
    const HWND window = CreateWindowExW(0, windowClass.lpszClassName, L"", 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr,
                                        windowClass.hInstance, nullptr);
    if (!window) throw std::runtime_error("the control window cannot be made");
    return window;
}

LRESULT CALLBACK RunningProgram::procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept
{
    auto* self = reinterpret_cast<RunningProgram*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    if (!self) return DefWindowProcW(window, message, wParam, lParam);
    return automation::catchAll(LRESULT{0}, [&] { return self->onMessage(message, wParam, lParam); });
}

LRESULT RunningProgram::onMessage(UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message) {
    case requestMessage:
        *reinterpret_cast<std::wstring*>(lParam) = respond(*reinterpret_cast<const std::wstring*>(wParam));
        return 1;
    case answeredMessage: answered(); return 0;
    case WM_TIMER:
        if (wParam == endTimer) endIfPossible();
        else store_.saveQuietly(*partner_);
        return 0;
    default: return DefWindowProcW(window_, message, wParam, lParam);
    }
}

void RunningProgram::run()
{
    MSG message;
    while (GetMessageW(&message, nullptr, 0, 0) > 0) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
    store_.saveQuietly(*partner_);
    revokeClasses();
}

void RunningProgram::close()
{
    if (ending_) return;
    ending_ = true;
    endIfPossible();
}

void RunningProgram::endIfPossible()
{
    if (partner_->endsWhenClosed()) PostQuitMessage(0);
    else SetTimer(window_, endTimer, endDelay, nullptr);
}

std::wstring RunningProgram::respond(const std::wstring& request)
try {
    std::wstring_view rest = request;
    const std::wstring word = takeWord(rest);
    std::wstring response = carryOut(word, rest);
    if (store_.isDirty() && !isAboutCallsOnly(word)) store_.save(*partner_);
    return response;
} catch (const std::exception& error) {
    return L"error: " + fromUtf8(error.what());
}

std::wstring RunningProgram::carryOut(const std::wstring& word, std::wstring_view rest)
{
    if (word == L"ping") return description_.name + (L" " + std::to_wstring(GetCurrentProcessId()));
    if (word == L"calls") return recorder_.totals();
    if (word == L"record") return recorder_.record();
    if (word == L"objects") return std::to_wstring(automation::server::Dispatch::liveCount());
    if (word == L"load") return reload(rest);
    if (word == L"clear") recorder_.clear();
    else if (word == L"fault") recorder_.faults.add(rest);
    else if (word == L"flush") store_.changed();
    else if (word == L"die") after_ = AfterAnswer::die;
    else if (word == L"restart") after_ = AfterAnswer::restart;
    else if (word == L"exit") after_ = AfterAnswer::close;
    else if (auto response = partner_->command(word, rest)) return *response;
    else throw std::runtime_error("unknown command \"" + utf8(word) + "\"");
    return L"ok";
}

std::wstring RunningProgram::reload(std::wstring_view text)
{
    partner_->load(parseStore(text));
    store_.changed();
    return L"ok";
}

void RunningProgram::answered()
{
    switch (std::exchange(after_, AfterAnswer::nothing)) {
    case AfterAnswer::nothing: break;
    case AfterAnswer::close: close(); break;
    case AfterAnswer::die: die();
    case AfterAnswer::restart: restart();
    }
}

void RunningProgram::offerClasses()
{
    for (const auto& each : description_.classes)
        factories_.push_back(std::make_unique<automation::server::ClassFactory>(
            each.classId, [this, classId = each.classId] { return partner_->object(classId); }));
}

void RunningProgram::revokeClasses() noexcept
{
    for (const auto& factory : factories_) factory->revoke();
}

// Looks at nothing but what the control pipe sends: a client waits, and so does
// whoever sends a message to a window, as with a program that has stopped answering.
void RunningProgram::hang(DWORD milliseconds)
{
    const DWORD start = GetTickCount();
    while (milliseconds == INFINITE || GetTickCount() - start < milliseconds) {
        MSG message;
        PeekMessageW(&message, window_, requestMessage, requestMessage, PM_NOREMOVE); // takes what was sent, too
        if (PeekMessageW(&message, window_, answeredMessage, answeredMessage, PM_REMOVE)) answered();
        Sleep(10);
    }
}

// The next one is there before this one has gone, and takes over when it has.
void RunningProgram::restart()
{
    std::wstring command = L"\"" + automation::server::programPath() + L"\" " + successorArgument + L" " +
                           std::to_wstring(GetCurrentProcessId());
    STARTUPINFOW start{};
    start.cb = sizeof start;
    PROCESS_INFORMATION next{};
    if (!CreateProcessW(nullptr, command.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr, &start, &next))
        writeError("the program cannot be started again");
    die();
}

// A process that dies with its class still offered would leave the class
// unusable on some systems until the COM service starts anew.
void RunningProgram::die()
{
    revokeClasses();
    TerminateProcess(GetCurrentProcess(), 1);
    ExitThread(1); // never reached: TerminateProcess ends this thread
}

}

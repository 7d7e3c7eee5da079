#include "desk/lotus/window_screen.h"

#include <algorithm>

namespace desk::lotus {

namespace {

constexpr int places = 12; // of the cascade, until it starts again on top of the first

void putBehind(HWND window)
{
    SetWindowPos(window, HWND_BOTTOM, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
}

}

WindowScreen::WindowScreen(std::function<void()> quit)
    : main_({std::move(quit), [this] { activated(0); },
             [this](const SharedDatabase& database) { notes_->workspace().show(database, database->defaultView()); },
             [this](const SharedDatabase& database, const SavedNote& note) {
                 notes_->workspace().open(std::make_shared<OpenNote>(database, note), false);
                 comeToForeground(notes_->workspace().current()->id);
             }})
{}

void WindowScreen::watch(Notes& notes)
{
    notes_ = &notes;
    main_.watch(notes);
}

// The first place that no window has, or else one after the other.
int WindowScreen::freePlace() const
{
    for (int place = 0; place < places; ++place)
        if (std::none_of(frames_.begin(), frames_.end(),
                         [place](const auto& entry) { return entry.second->place() == place; }))
            return place;
    return static_cast<int>(frames_.size()) % places;
}

HWND WindowScreen::windowOf(WindowId id) const
{
    const auto found = frames_.find(id);
    return found == frames_.end() ? main_.handle() : found->second->handle();
}

bool WindowScreen::isOurs(HWND window) const
{
    DWORD process = 0;
    GetWindowThreadProcessId(window, &process);
    return process == GetCurrentProcessId() || (frame_ && window == frame_->handle());
}

// The next visible window of another program, or the desktop.
HWND WindowScreen::windowOfOthers() const
{
    for (HWND window = GetTopWindow(nullptr); window; window = GetWindow(window, GW_HWNDNEXT))
        if (IsWindowVisible(window) && !isOurs(window)) return window;
    return GetDesktopWindow();
}

void WindowScreen::activated(WindowId id)
{
    if (quiet_ == 0 && notes_) notes_->workspace().activated(id);
}

void WindowScreen::save(WindowId id)
try {
    notes_->workspace().save(id);
} catch (const automation::server::Exception& error) {
    MessageBoxW(windowOf(id), error.description.c_str(), L"Lotus Notes", MB_OK | MB_ICONWARNING);
}

void WindowScreen::open(WindowId id, const DocumentView& view)
{
    const Quiet quiet(*this);
    frames_[id] = std::make_unique<DocumentFrame>(
        view, freePlace(),
        DocumentFrame::Handlers{[this, id] { notes_->workspace().close(id); }, [this, id] { save(id); },
                                [this, id](bool editing) { notes_->workspace().setEditing(id, editing); },
                                [this, id] { activated(id); }});
    if (frame_) frame_->take(windowOf(id));
    raise(id);
}

void WindowScreen::update(WindowId id, const DocumentView& view)
{
    frames_.at(id)->show(view);
}

void WindowScreen::close(WindowId id)
{
    const Quiet quiet(*this);
    frames_.erase(id);
}

// In front of Notes' own windows; of other programs' windows only when the
// user is working in Notes, since no program may take the foreground.
void WindowScreen::raise(WindowId id)
{
    const Quiet quiet(*this);
    const HWND window = windowOf(id);
    SetWindowPos(window, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE | SWP_SHOWWINDOW);
    if (isOurs(GetForegroundWindow())) SetForegroundWindow(outermost(window));
    UpdateWindow(window);
}

void WindowScreen::comeToForeground(WindowId id)
{
    const Quiet quiet(*this);
    const HWND window = windowOf(id);
    ShowWindow(window, SW_SHOWNORMAL);
    if (frame_) BringWindowToTop(window);
    SetForegroundWindow(outermost(window));
}

void WindowScreen::leaveForeground()
{
    const Quiet quiet(*this);
    for (const auto& [id, frame] : frames_) putBehind(outermost(frame->handle()));
    putBehind(outermost(main_.handle()));
    SetForegroundWindow(windowOfOthers());
}

void WindowScreen::updateMain()
{
    main_.update();
}

void WindowScreen::moveIntoFrame()
{
    if (frame_) return;
    const Quiet quiet(*this);
    frame_.emplace();
    frame_->take(main_.handle());
    for (const auto& [id, frame] : frames_) frame_->take(frame->handle());
}

}

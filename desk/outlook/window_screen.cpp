#include "desk/outlook/window_screen.h"

#include "desk/common/text.h"

#include <algorithm>

namespace desk::outlook {

namespace {

constexpr int places = 12; // of the cascade, until it starts again on top of the first

}

WindowScreen::WindowScreen(std::function<void()> quit)
    : main_({std::move(quit), [this](const std::wstring& entryId) { outlook_->open(entryId); }})
{}

void WindowScreen::watch(Outlook& outlook)
{
    outlook_ = &outlook;
    main_.watch(outlook.mailbox());
}

// The first place that no window has, or else one after the other.
int WindowScreen::freePlace() const
{
    for (int place = 0; place < places; ++place)
        if (std::none_of(windows_.begin(), windows_.end(),
                         [place](const auto& entry) { return entry.second->place() == place; }))
            return place;
    return static_cast<int>(windows_.size()) % places;
}

void WindowScreen::open(InspectorId id, const InspectorView& view)
{
    const ItemWindow::Handlers handlers{[this, id] { outlook_->closedByUser(id); }, [this, id] { save(id); }};
    windows_[id] = std::make_unique<ItemWindow>(view, freePlace(), handlers);
}

void WindowScreen::save(InspectorId id)
{
    try {
        outlook_->savedByUser(id);
    } catch (const std::exception& error) {
        MessageBoxW(nullptr, fromUtf8(error.what()).c_str(), L"Microsoft Outlook", MB_OK | MB_ICONWARNING);
    }
}

void WindowScreen::update(InspectorId id, const InspectorView& view)
{
    windows_.at(id)->show(view);
}

void WindowScreen::bringToFront(InspectorId id)
{
    windows_.at(id)->bringToFront();
}

void WindowScreen::close(InspectorId id)
{
    windows_.erase(id);
    // Whoever waits for it may be waiting for a message, and a close request
    // sent by another thread is none.
    PostThreadMessageW(GetCurrentThreadId(), WM_NULL, 0, 0);
}

void WindowScreen::waitUntilClosed(InspectorId id)
{
    MSG message;
    while (windows_.contains(id) && GetMessageW(&message, nullptr, 0, 0) > 0) {
        TranslateMessage(&message);
        DispatchMessageW(&message);
    }
    // The end of the program is for the outer loop to see.
    if (windows_.contains(id)) PostQuitMessage(0);
}

void WindowScreen::updateFolders()
{
    main_.update();
}

}

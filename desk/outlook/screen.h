// What Outlook shows: a window for each displayed item. The program makes real
// windows; a test may just count them.
#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace desk::outlook {

// What an item's window says at the moment.
struct InspectorView {
    std::wstring title; // "Marc Durand - Contact"
    std::vector<std::pair<std::wstring, std::wstring>> fields; // label and text; Body last
};

using InspectorId = unsigned;

class Screen {
public:
    virtual ~Screen() = default;

    virtual void open(InspectorId id, const InspectorView& view) = 0;
    virtual void update(InspectorId id, const InspectorView& view) = 0;
    virtual void bringToFront(InspectorId id) = 0;
    virtual void close(InspectorId id) = 0;

    // Returns when the user has closed the window: Display(True).
    virtual void waitUntilClosed(InspectorId id) = 0;

    // Folders' contents have changed.
    virtual void updateFolders() = 0;

    // The user looks at that folder; false when there is none of that name.
    virtual bool showFolder(std::wstring_view name) = 0;
};

// Shows nothing; a modal window counts as closed by the user at once.
class NoScreen : public Screen {
public:
    void open(InspectorId, const InspectorView&) override {}
    void update(InspectorId, const InspectorView&) override {}
    void bringToFront(InspectorId) override {}
    void close(InspectorId) override {}
    void waitUntilClosed(InspectorId) override {}
    void updateFolders() override {}
    bool showFolder(std::wstring_view) override { return true; }
};

}

// What Notes shows: a window for each displayed document beside its main
// window. The program makes real windows; a test may do without.
#pragma once

#include <string>
#include <utility>
#include <vector>

namespace desk::lotus {

// What a document's window says at the moment.
struct DocumentView {
    std::wstring title;
    bool editing = false;
    std::vector<std::pair<std::wstring, std::wstring>> items; // name and text
};

using WindowId = unsigned; // of a document's window; 0 stands for the main window

class Screen {
public:
    virtual ~Screen() = default;

    virtual void open(WindowId id, const DocumentView& view) = 0;
    virtual void update(WindowId id, const DocumentView& view) = 0;
    virtual void close(WindowId id) = 0;

    // In front of Notes' other windows.
    virtual void raise(WindowId id) = 0;

    // In front of all windows, as when the user clicks on it; and behind those
    // of other programs.
    virtual void comeToForeground(WindowId id) = 0;
    virtual void leaveForeground() = 0;

    // What the main window shows has changed.
    virtual void updateMain() = 0;

    // All windows lie in the frame of a second program from now on.
    virtual void moveIntoFrame() = 0;
};

class NoScreen : public Screen {
public:
    void open(WindowId, const DocumentView&) override {}
    void update(WindowId, const DocumentView&) override {}
    void close(WindowId) override {}
    void raise(WindowId) override {}
    void comeToForeground(WindowId) override {}
    void leaveForeground() override {}
    void updateMain() override {}
    void moveIntoFrame() override {}
};

}

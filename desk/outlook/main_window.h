// Outlook's main window: the folders with the number of their items, and the
// items of the one that is chosen.
#pragma once

#include "desk/common/frame.h"
#include "desk/outlook/mailbox.h"

#include <commctrl.h>

#include <functional>
#include <string>

namespace desk::outlook {

class MainWindow final : public Frame {
public:
    struct Handlers {
        std::function<void()> closed;                                    // the user ends Outlook
        std::function<void(const std::wstring& entryId)> opened;         // a double click on an item
    };

    explicit MainWindow(Handlers handlers);

    // Whose folders are shown; it outlives this window.
    void watch(Mailbox& mailbox);

    // The user chooses a folder by its name; false when there is none.
    bool show(std::wstring_view folderName);

    // The folders have changed: shown a little later, since changes come in crowds.
    void update();

private:
    LRESULT onMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
    LRESULT notified(NMHDR& header);
    void makeLists();
    void fillRow(LVITEMW& row);
    void refresh();
    void choose(std::size_t folder);
    void select(std::size_t folder);
    const Folder* chosen() const;

    const Handlers handlers_;
    const Font font_{100};
    HWND folders_ = nullptr;
    HWND items_ = nullptr;
    HWND status_ = nullptr;
    Mailbox* mailbox_ = nullptr;
    std::size_t chosen_ = 0;
    bool waiting_ = false;
    std::wstring cell_; // what the list was told last
};

}

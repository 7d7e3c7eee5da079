// The program's screen: a real window for each displayed item, in a cascade.
#pragma once

#include "desk/outlook/item_window.h"
#include "desk/outlook/main_window.h"
#include "desk/outlook/outlook.h"

#include <map>
#include <memory>

namespace desk::outlook {

class WindowScreen final : public Screen {
public:
    // `quit`: the user closes the main window.
    explicit WindowScreen(std::function<void()> quit);

    // Whose items are shown; it outlives this.
    void watch(Outlook& outlook);

    // The main window closes; those of items may still open.
    void hide() { ShowWindow(main_.handle(), SW_HIDE); }

    void open(InspectorId id, const InspectorView& view) override;
    void update(InspectorId id, const InspectorView& view) override;
    void bringToFront(InspectorId id) override;
    void close(InspectorId id) override;
    void waitUntilClosed(InspectorId id) override;
    void updateFolders() override;
    bool showFolder(std::wstring_view name) override { return main_.show(name); }

private:
    int freePlace() const;
    void save(InspectorId id);

    Outlook* outlook_ = nullptr;
    MainWindow main_;
    std::map<InspectorId, std::unique_ptr<ItemWindow>> windows_;
};

}

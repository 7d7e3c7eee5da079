// Outlook as a whole: its mailbox, its open windows and its application
// object. The program and unit tests make one each; it outlives every object
// that was got from it (let go of them first).
#pragma once

#include "automation/com_ptr.h"
#include "automation/object.h"
#include "desk/common/recorder.h"
#include "desk/outlook/guard.h"
#include "desk/outlook/mailbox.h"
#include "desk/outlook/screen.h"
#include "desk/outlook/setup.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace desk::outlook {

class ItemObject;

class Outlook {
public:
    // `changed`: the saved records are others than before; `quit`: Outlook
    // shall close. Both may be empty.
    Outlook(Recorder& recorder, Screen& screen, std::function<void()> changed = {}, std::function<void()> quit = {});
    ~Outlook();
    Outlook(const Outlook&) = delete;
    Outlook& operator=(const Outlook&) = delete;

    // "Outlook.Application"; the same object each time.
    automation::ComPtr<IDispatch> application();

    // The same for a client that creates it. Throws AutomationError where the
    // setup says that this fails.
    automation::ComPtr<IDispatch> applicationForClient();
    unsigned long creations() const noexcept { return creations_; } // asked for so far

    Recorder& recorder() noexcept { return recorder_; }
    Mailbox& mailbox() noexcept { return mailbox_; }
    const Setup& setup() const noexcept { return setup_; }
    Version version() const noexcept { return setup_.version; }
    void setVersion(Version version);
    Guard& guard() noexcept { return guard_; }

    // The object of a saved item. One that is displayed has one object for all,
    // its user and its clients: what is typed into its window is seen at once.
    automation::ComPtr<ItemObject> itemOf(const SavedItem& saved);

    // A table has been read on, by one block: an item that was to come then is saved.
    void blockWasRead();

    // Whether clients hold anything but what this keeps itself.
    bool isHeld();

    void quit()
    {
        if (quit_) quit_();
    }

    // After every change of what is saved.
    void changed();

    // The records of the store: [outlook] with the version, then the items.
    // Loading others closes the windows.
    void load(const std::vector<StoreRecord>& records);
    std::vector<StoreRecord> records() const;

    // Carries a control command of Outlook's own out; see docs/desk.md.
    // No value for an unknown word; std::runtime_error when it cannot be done.
    std::optional<std::wstring> command(const std::wstring& word, std::wstring_view rest);

    // The windows of displayed items, in the order of their opening.
    struct Inspector {
        InspectorId id;
        automation::ComPtr<ItemObject> item;
    };
    const std::vector<Inspector>& inspectors() const noexcept { return inspectors_; }
    void display(ItemObject& item, bool modal);
    void updateInspector(ItemObject& item);
    void closeInspector(ItemObject& item);

    // What the user does: close a window (what is not saved is lost), save and
    // close it, open an item of a list. Throw std::runtime_error when it cannot
    // be done.
    void closedByUser(InspectorId id);
    void savedByUser(InspectorId id);
    void open(const std::wstring& entryId);

    // All windows of items; what is not saved is lost.
    void closeWindows();

private:
    // A control command that waits until so many more blocks of tables have been read.
    struct DeferredCommand {
        std::wstring word;
        std::wstring rest;
        unsigned long blocks;
    };

    Inspector* inspectorOf(const ItemObject& item) noexcept;
    std::optional<std::wstring> settingCommand(const std::wstring& word, std::wstring_view rest);
    void deferCommand(std::wstring_view text);
    void remove(InspectorId id);

    Recorder& recorder_;
    Screen& screen_;
    const std::function<void()> changed_;
    const std::function<void()> quit_;
    Mailbox mailbox_;
    Setup setup_;
    Guard guard_{recorder_, setup_};
    std::optional<DeferredCommand> deferredCommand_;
    std::vector<Inspector> inspectors_;
    InspectorId lastInspector_ = 0;
    automation::ComPtr<IDispatch> application_;
    unsigned long creations_ = 0;
};

}

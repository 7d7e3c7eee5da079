// The user's side of Notes: the open windows, which of them is in front, the
// view that is looked at, and the icons of databases.
#pragma once

#include "desk/lotus/open_note.h"
#include "desk/lotus/screen.h"

#include <functional>
#include <string>
#include <vector>

namespace desk::lotus {

struct DocumentWindow {
    WindowId id = 0;
    SharedNote note;
    bool editing = false;
    bool readOnly = false;  // no later change to edit mode
    unsigned version = 0;   // of what is saved, as far as the window knows
    const ItemName* currentField = nullptr;

    const Form* form() const;       // of its document, null for an unknown one
    std::wstring title() const;
    DocumentView view() const;

    // The field of that name, for reading and for changing; raises when the
    // form has none. An empty name means the current field.
    FormField field(const std::wstring& name) const;
};

struct Icon {
    std::wstring server;
    std::wstring filePath;
};

class Workspace {
public:
    // `saved`: a window has saved its document, or the icons are others.
    Workspace(Screen& screen, std::function<void()> saved) : screen_(screen), saved_(std::move(saved)) {}
    ~Workspace() { clear(); }
    Workspace(const Workspace&) = delete;
    Workspace& operator=(const Workspace&) = delete;

    // In the order of opening.
    const std::vector<DocumentWindow>& windows() const noexcept { return windows_; }
    DocumentWindow* find(WindowId id) noexcept;

    // The window of the document that is in front in Notes; null when the user
    // looks at a view or at nothing.
    DocumentWindow* current() noexcept;

    // Displays a document. One that is displayed already gets another window
    // (`newInstance`), or its window comes to the front, in the wanted mode.
    WindowId open(const SharedNote& note, bool editing, bool readOnly = false, bool newInstance = false);

    void setEditing(WindowId id, bool editing);
    void save(WindowId id);   // raises in read mode
    void close(WindowId id);  // what is not saved is lost, unless SaveOptions is "1"
    void activated(WindowId id); // by the user; 0 for the main window

    // The document was changed or saved.
    void changed(const OpenNote& note);

    // The user looks at that view, no document. Null for none.
    void show(SharedDatabase database, const View* view);
    const SharedDatabase& shownDatabase() const noexcept { return database_; }
    const View* shownView() const noexcept { return view_; }

    // Adds the icon where it is missing, and highlights it.
    void addIcon(const Database& database);
    std::vector<Icon>& icons() noexcept { return icons_; }
    const std::vector<Icon>& icons() const noexcept { return icons_; }
    const Icon* highlighted() const noexcept;
    bool hasIcon(const Database& database) const;

    Screen& screen() noexcept { return screen_; }

    // Closes everything without saving.
    void clear();

private:
    DocumentWindow* windowOf(const OpenNote& note) noexcept;
    void remove(WindowId id);
    void toFront(WindowId id);
    void update(const DocumentWindow& window);
    void convertFields(DocumentWindow& window);

    Screen& screen_;
    const std::function<void()> saved_;
    std::vector<DocumentWindow> windows_;
    std::vector<WindowId> order_; // the one in front last; 0 is the view
    WindowId lastWindow_ = 0;
    SharedDatabase database_;
    const View* view_ = nullptr;
    std::vector<Icon> icons_;
    std::size_t highlighted_ = static_cast<std::size_t>(-1);
};

}

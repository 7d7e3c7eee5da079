// Notes' main window: the databases, the environment, and the documents of the
// view that the user looks at.
#pragma once

#include "desk/common/frame.h"
#include "desk/common/list_view.h"
#include "desk/lotus/notes.h"

#include <functional>
#include <string>

namespace desk::lotus {

class MainWindow final : public Frame {
public:
    struct Handlers {
        std::function<void()> closed;    // the user ends Notes
        std::function<void()> activated; // the user comes to this window
        std::function<void(const SharedDatabase&)> chosen;                   // a click on a database
        std::function<void(const SharedDatabase&, const SavedNote&)> opened; // a double click on a document
    };

    explicit MainWindow(Handlers handlers);

    // What is shown; it outlives this window.
    void watch(Notes& notes);

    // Something has changed: shown a little later, since changes come in crowds.
    void update();

private:
    LRESULT onMessage(UINT message, WPARAM wParam, LPARAM lParam) override;
    LRESULT notified(NMHDR& header);
    void makeLists();
    void refresh();
    void showColumns(const View* view);
    void fillDatabase(LVITEMW& row);
    void fillVariable(LVITEMW& row);
    void fillDocument(LVITEMW& row);
    const std::vector<ViewIndex::Entry>& shownEntries() const;

    const Handlers handlers_;
    const Font font_{100};
    HWND databases_ = nullptr;
    HWND variables_ = nullptr;
    HWND documents_ = nullptr;
    HWND status_ = nullptr;
    Notes* notes_ = nullptr;
    SharedDatabase shownDatabase_;
    const View* shownView_ = nullptr; // of that database
    bool waiting_ = false;
    std::wstring cell_; // what a list was told last
};

}

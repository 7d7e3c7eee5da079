// A document in memory: a copy of what is saved, as it was when it was opened,
// with changes that others see only when they are saved. All references got
// through one opening share it, and so does its window.
#pragma once

#include "desk/lotus/database.h"

namespace desk::lotus {

class OpenNote {
public:
    // A new document, or a saved one.
    explicit OpenNote(SharedDatabase database);
    OpenNote(SharedDatabase database, SavedNote saved);

    const SharedDatabase& database() const noexcept { return database_; }
    const SavedNote& saved() const noexcept { return saved_; } // null before the first save
    bool isNew() const noexcept { return !saved_; }
    bool isDeleted() const noexcept { return saved_ && saved_->deleted; }

    // As this opening sees it, also after its deletion; and the same to be changed.
    const Note& note() const noexcept { return contents_; }
    Note& edit() noexcept;
    bool hasChanges() const noexcept { return changed_; }

    unsigned savedVersion() const noexcept { return saved_ ? saved_->version : 0; }

    // Writes it to the database. When somebody else has saved the document
    // since it was opened: writes over that (`force`), or saves this one as a
    // conflict that answers it (`asResponse`), or neither and returns false.
    // Raises when the document was deleted.
    bool save(bool force, bool asResponse);

    // The same for the user's window: a document that was saved by anybody
    // since `version` becomes a conflict. Returns the version saved.
    unsigned saveFromWindow(unsigned version);

    // False when somebody else has saved it meanwhile and not `force`.
    bool remove(bool force);

private:
    void checkNotDeleted() const;
    void write();
    void writeConflict();

    const SharedDatabase database_;
    SavedNote saved_;
    Note contents_;
    unsigned version_ = 0; // of what is saved, when it was opened or saved through this
    bool changed_ = false;
};

using SharedNote = std::shared_ptr<OpenNote>;

}

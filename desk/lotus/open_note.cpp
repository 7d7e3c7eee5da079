#include "desk/lotus/open_note.h"

#include "desk/lotus/errors.h"

namespace desk::lotus {

OpenNote::OpenNote(SharedDatabase database) : database_(std::move(database)), changed_(true) {}

OpenNote::OpenNote(SharedDatabase database, SavedNote saved)
    : database_(std::move(database)), saved_(std::move(saved)), contents_(*saved_), version_(saved_->version)
{}

Note& OpenNote::edit() noexcept
{
    changed_ = true;
    return contents_;
}

void OpenNote::checkNotDeleted() const
{
    if (isDeleted()) raiseDeleted();
}

void OpenNote::write()
{
    if (saved_) database_->replace(saved_, contents_);
    else saved_ = database_->add(contents_);
    contents_ = *saved_;
    version_ = saved_->version;
    changed_ = false;
}

// The document is from now on the conflict, as it is for a replicator.
void OpenNote::writeConflict()
{
    contents_.replace(textItem(names::reference, saved_->universalId));
    contents_.replace(textItem(names::conflict, L""));
    contents_.noteId = 0;
    contents_.universalId.clear();
    contents_.created = contents_.modified = 0;
    saved_.reset();
    write();
}

bool OpenNote::save(bool force, bool asResponse)
{
    checkNotDeleted();
    const bool conflict = saved_ && saved_->version != version_ && !force;
    if (conflict && !asResponse) return false;
    if (conflict) writeConflict();
    else write();
    return true;
}

unsigned OpenNote::saveFromWindow(unsigned version)
{
    checkNotDeleted();
    if (saved_ && saved_->version != version) writeConflict();
    else write();
    return version_;
}

bool OpenNote::remove(bool force)
{
    checkNotDeleted();
    if (saved_ && saved_->version != version_ && !force) return false;
    if (saved_) database_->remove(saved_);
    return true;
}

}

// A database: its place, its design (forms and views) and its documents.
#pragma once

#include "desk/lotus/query.h"
#include "desk/lotus/view.h"

#include <deque>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

namespace desk::lotus {

struct FormField {
    const ItemName* name;
    ItemType type = ItemType::text;
};

struct Form {
    std::wstring name;
    std::vector<std::wstring> aliases;
    std::vector<FormField> fields;      // none: whatever items a document has
    const ItemName* title = nullptr;    // the item that a document's window is called by
};

class Database {
public:
    Database() = default;
    Database(const Database&) = delete;
    Database& operator=(const Database&) = delete;

    std::wstring server;   // as the store says, empty for a local one
    std::wstring filePath; // "books\\contacts.nsf"
    std::wstring title;
    bool canBeOpened = true;
    bool fullTextIndexed = false;
    std::vector<Form> forms;

    // Whether a client that names it so means this one: the server in its
    // canonical or its abbreviated form, the path without regard to case, the
    // ending .nsf left out or not.
    bool isAt(std::wstring_view wantedServer, std::wstring_view wantedPath) const;

    void add(View view);

    // The view with that name or alias, the default view (the first without
    // one); null when there is none.
    const View* view(std::wstring_view name) const;
    const View* defaultView() const;

    std::vector<std::reference_wrapper<const View>> views() const;

    // The documents of one of its views.
    const ViewIndex& index(const View& view);

    // The form of that name or alias, or null.
    const Form* form(std::wstring_view name) const;

    // In the order of creation.
    const std::vector<SavedNote>& notes() const noexcept { return notes_; }

    // Null when there is none, or no longer.
    SavedNote find(unsigned long noteId) const;
    SavedNote findUniversal(const std::wstring& universalId) const;

    // Saves a document that is new or (`replace`) saved already. Identifiers
    // that it lacks are given. `modified` and `version` follow.
    SavedNote add(Note contents);
    void replace(const SavedNote& note, Note contents);
    void remove(SavedNote note);

    // When a document was saved or deleted last, to the second, or what is to be
    // told instead from now on.
    DATE lastModified() const noexcept { return toldModified_.value_or(modified_); }
    void tellModified(DATE date) { toldModified_ = date; }

    // A full-text index is as old as its last update: from now on searches see
    // the documents as they are now, until it is updated.
    void leaveIndexBehind();
    void updateIndex() { indexed_.reset(); }

    // The documents of a view (in its order) that match, at most `most` of
    // them unless that is 0. With a full-text index, those with most hits first.
    std::vector<SavedNote> search(const View& view, const Condition& condition, std::size_t most);

private:
    struct StoredView {
        explicit StoredView(View design) : view(std::move(design)), index(view) {}
        View view;
        ViewIndex index;
    };

    std::wstring newUniversalId(unsigned long noteId) const;
    void wasModified() noexcept;
    std::vector<SavedNote> candidates(const View& view, const Condition& condition);
    const Note* asIndexed(const Note& note) const; // null when it is not in the index

    std::deque<StoredView> views_;
    std::vector<SavedNote> notes_;
    std::unordered_map<unsigned long, SavedNote> byId_;
    std::unordered_map<std::wstring, SavedNote> byUniversalId_;
    WordIndex words_;
    std::optional<std::unordered_map<unsigned long, Note>> indexed_; // by place, while the index is behind
    unsigned long lastId_ = 0;
    unsigned long lastPlace_ = 0;
    DATE modified_ = 0;
    std::optional<DATE> toldModified_;
};

using SharedDatabase = std::shared_ptr<Database>;

// "CN=Mail1/OU=Paris/O=Acme" as "Mail1/Paris/Acme"; "Mail1" of both.
std::wstring abbreviatedName(std::wstring_view name);
std::wstring commonName(std::wstring_view name);

}

// A view: which documents of a database it shows and in which order.
#pragma once

#include "desk/lotus/note.h"

#include <string>
#include <string_view>
#include <vector>

namespace desk::lotus {

// What a sorted column shows for a document: numbers come before dates, dates
// before texts; texts are compared without regard to case.
struct ColumnValue {
    int rank = 2;        // 0 number, 1 date, 2 text
    double number = 0;
    std::wstring folded; // in lower case

    bool operator==(const ColumnValue&) const = default;
    bool operator<(const ColumnValue& other) const noexcept;

    // Whether it is the wanted value or, not exact, a text beginning like it.
    bool matches(const ColumnValue& wanted, bool exact) const noexcept;
};

using Columns = std::vector<ColumnValue>;

// The value that an item gives its column, and the one that a key asks for
// (see itemFrom): its first.
ColumnValue columnOf(const Item* item);

struct View {
    std::vector<std::wstring> names;     // its name, then its aliases; hidden ones in parentheses
    std::vector<const ItemName*> sorted; // the items in its sorted columns
    std::vector<std::wstring> forms;     // of the documents that it shows; none for all documents
    bool isDefault = false;

    bool isCalled(std::wstring_view name) const;
    bool shows(const Note& note) const;
    Columns columnsOf(const Note& note) const;
};

// The documents of a view in their order: by the sorted columns, then in that
// of creation. Built when it is asked for first, and kept up to date then.
class ViewIndex {
public:
    struct Entry {
        Columns columns;
        SavedNote note;

        bool operator<(const Entry& other) const noexcept;
    };

    explicit ViewIndex(const View& view) : view_(view) {}

    bool built() const noexcept { return built_; }
    void build(const std::vector<SavedNote>& notes);
    void add(const SavedNote& note);

    // While the note still is as it was added.
    void remove(const SavedNote& note);

    using Entries = std::vector<Entry>;

    const Entries& entries() const noexcept { return *entries_; }

    // The same, to be kept as they are now.
    std::shared_ptr<const Entries> kept() const noexcept { return entries_; }

    std::size_t responses() const noexcept { return responses_; }

    // Where the document stands; entries().size() when it is not in the view.
    std::size_t positionOf(const Note& note) const;

    // The first document whose columns match and that was not deleted meanwhile;
    // null when there is none.
    static SavedNote find(const Entries& entries, const Columns& wanted, bool exact);

private:
    const View& view_;
    Entries& changeable(); // those that were kept stay as they are

    bool built_ = false;
    std::shared_ptr<Entries> entries_ = std::make_shared<Entries>();
    std::size_t responses_ = 0;
};

}

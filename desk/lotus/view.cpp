#include "desk/lotus/view.h"

#include "automation/text.h"
#include "desk/common/text.h"

#include <algorithm>

namespace desk::lotus {

bool ColumnValue::operator<(const ColumnValue& other) const noexcept
{
    if (rank != other.rank) return rank < other.rank;
    return rank < 2 ? number < other.number : folded < other.folded;
}

bool ColumnValue::matches(const ColumnValue& wanted, bool exact) const noexcept
{
    if (exact || wanted.rank < 2) return *this == wanted;
    return rank == wanted.rank && folded.starts_with(wanted.folded);
}

ColumnValue columnOf(const Item* item)
{
    ColumnValue value;
    if (!item || item->size() == 0) return value;
    if (item->isText()) {
        value.folded = lowerCase(item->texts[0]);
    } else {
        value.rank = item->type == ItemType::number ? 0 : 1;
        value.number = item->numbers[0];
    }
    return value;
}

bool View::isCalled(std::wstring_view name) const
{
    return std::any_of(names.begin(), names.end(),
                       [name](const std::wstring& own) { return automation::equalIgnoringCase(own, name); });
}

bool View::shows(const Note& note) const
{
    if (forms.empty()) return true;
    const std::wstring form = note.text(names::form);
    return std::any_of(forms.begin(), forms.end(),
                       [&form](const std::wstring& own) { return automation::equalIgnoringCase(own, form); });
}

Columns View::columnsOf(const Note& note) const
{
    Columns columns;
    columns.reserve(sorted.size());
    for (const ItemName* name : sorted) columns.push_back(columnOf(note.find(*name)));
    return columns;
}

bool ViewIndex::Entry::operator<(const Entry& other) const noexcept
{
    if (columns < other.columns) return true;
    return !(other.columns < columns) && note->place < other.note->place;
}

ViewIndex::Entries& ViewIndex::changeable()
{
    if (entries_.use_count() > 1) entries_ = std::make_shared<Entries>(*entries_);
    return *entries_;
}

void ViewIndex::build(const std::vector<SavedNote>& notes)
{
    Entries& entries = changeable();
    entries.clear();
    responses_ = 0;
    for (const SavedNote& note : notes) {
        if (!view_.shows(*note)) continue;
        entries.push_back({view_.columnsOf(*note), note});
        responses_ += note->isResponse();
    }
    std::sort(entries.begin(), entries.end());
    built_ = true;
}

void ViewIndex::add(const SavedNote& note)
{
    if (!built_ || !view_.shows(*note)) return;
    Entry entry{view_.columnsOf(*note), note};
    Entries& entries = changeable();
    entries.insert(std::lower_bound(entries.begin(), entries.end(), entry), std::move(entry));
    responses_ += note->isResponse();
}

void ViewIndex::remove(const SavedNote& note)
{
    const std::size_t position = positionOf(*note);
    if (!built_ || position == entries().size()) return;
    Entries& entries = changeable();
    entries.erase(entries.begin() + static_cast<std::ptrdiff_t>(position));
    responses_ -= note->isResponse();
}

std::size_t ViewIndex::positionOf(const Note& note) const
{
    const Columns columns = view_.columnsOf(note);
    const Entries& entries = *entries_;
    const auto found = std::lower_bound(entries.begin(), entries.end(), note, [&](const Entry& entry, const Note&) {
        if (entry.columns < columns) return true;
        return !(columns < entry.columns) && entry.note->place < note.place;
    });
    const bool here = found != entries.end() && found->note->place == note.place && found->columns == columns;
    return static_cast<std::size_t>((here ? found : entries.end()) - entries.begin());
}

SavedNote ViewIndex::find(const Entries& entries, const Columns& wanted, bool exact)
{
    // Shorter lists come before longer ones that begin alike, so this is the
    // first entry that can match.
    auto entry = std::lower_bound(entries.begin(), entries.end(), wanted,
                                  [](const Entry& one, const Columns& columns) { return one.columns < columns; });
    for (; entry != entries.end() && entry->columns[0].matches(wanted[0], exact); ++entry) {
        const bool all =
            std::equal(wanted.begin(), wanted.end(), entry->columns.begin(),
                       [exact](const ColumnValue& key, const ColumnValue& own) { return own.matches(key, exact); });
        if (all && !entry->note->deleted) return entry->note;
    }
    return nullptr;
}

}

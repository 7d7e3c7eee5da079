#include "desk/lotus/database.h"

#include "automation/conversion.h"
#include "automation/text.h"
#include "desk/common/text.h"

#include <algorithm>
#include <cmath>
#include <cwchar>

namespace desk::lotus {

namespace {

// Each database counts its documents for itself: the same note ID stands for
// different documents in different databases.
constexpr unsigned long firstNoteId = 0x8F6;
constexpr unsigned long noteIdStep = 4;

std::wstring comparablePath(std::wstring_view path)
{
    std::wstring folded = lowerCase(path);
    std::replace(folded.begin(), folded.end(), L'/', L'\\');
    const std::size_t name = folded.rfind(L'\\') + 1;
    if (!folded.empty() && folded.find(L'.', name) == std::wstring::npos) folded += L".nsf";
    return folded;
}

// A number for a database by its place, so that its documents' universal
// identifiers are the same each time.
std::uint64_t fingerprint(const std::wstring& text)
{
    std::uint64_t hash = 0xCBF29CE484222325u;
    for (const wchar_t c : text) hash = (hash ^ c) * 0x100000001B3u;
    return hash;
}

}

bool Database::isAt(std::wstring_view wantedServer, std::wstring_view wantedPath) const
{
    return automation::equalIgnoringCase(abbreviatedName(server), abbreviatedName(wantedServer)) &&
           comparablePath(filePath) == comparablePath(wantedPath);
}

void Database::add(View view)
{
    views_.emplace_back(std::move(view));
}

const View* Database::view(std::wstring_view name) const
{
    for (const StoredView& stored : views_)
        if (stored.view.isCalled(name)) return &stored.view;
    return nullptr;
}

const View* Database::defaultView() const
{
    for (const StoredView& stored : views_)
        if (stored.view.isDefault) return &stored.view;
    return views_.empty() ? nullptr : &views_.front().view;
}

std::vector<std::reference_wrapper<const View>> Database::views() const
{
    std::vector<std::reference_wrapper<const View>> all;
    for (const StoredView& stored : views_) all.emplace_back(stored.view);
    return all;
}

const ViewIndex& Database::index(const View& view)
{
    const auto stored =
        std::find_if(views_.begin(), views_.end(), [&view](const StoredView& each) { return &each.view == &view; });
    if (!stored->index.built()) stored->index.build(notes_);
    return stored->index;
}

const Form* Database::form(std::wstring_view name) const
{
    for (const Form& form : forms) {
        if (automation::equalIgnoringCase(form.name, name)) return &form;
        for (const std::wstring& alias : form.aliases)
            if (automation::equalIgnoringCase(alias, name)) return &form;
    }
    return nullptr;
}

SavedNote Database::find(unsigned long noteId) const
{
    const auto found = byId_.find(noteId);
    return found == byId_.end() ? nullptr : found->second;
}

SavedNote Database::findUniversal(const std::wstring& universalId) const
{
    const auto found = byUniversalId_.find(universalId);
    return found == byUniversalId_.end() ? nullptr : found->second;
}

std::wstring Database::newUniversalId(unsigned long noteId) const
{
    wchar_t text[40];
    const std::uint64_t own = fingerprint(server + L"!!" + lowerCase(filePath));
    swprintf(text, 40, L"%08lX%08lXC1257B0000%06lX", static_cast<unsigned long>(own >> 32),
             static_cast<unsigned long>(own), noteId);
    return text;
}

void Database::wasModified() noexcept
{
    constexpr double secondsOfADay = 86'400;
    modified_ = std::round(automation::now() * secondsOfADay) / secondsOfADay; // whole seconds, nearly
}

SavedNote Database::add(Note contents)
{
    if (contents.noteId == 0) {
        do contents.noteId = firstNoteId + noteIdStep * lastId_++;
        while (byId_.contains(contents.noteId)); // a store file may have brought its own
    }
    if (contents.universalId.empty()) contents.universalId = newUniversalId(contents.noteId);
    if (contents.created == 0) contents.created = automation::now();
    if (contents.modified == 0) contents.modified = contents.created;
    contents.place = ++lastPlace_;
    contents.version = 1;
    contents.deleted = false;
    const auto note = std::make_shared<Note>(std::move(contents));
    notes_.push_back(note);
    byId_[note->noteId] = note;
    byUniversalId_[note->universalId] = note;
    for (StoredView& stored : views_) stored.index.add(note);
    words_.add(*note);
    wasModified();
    return note;
}

void Database::replace(const SavedNote& note, Note contents)
{
    for (StoredView& stored : views_) stored.index.remove(note);
    note->items = std::move(contents.items);
    note->modified = automation::now();
    ++note->version;
    for (StoredView& stored : views_) stored.index.add(note);
    words_.add(*note);
    wasModified();
}

// A reference of its own: the caller's may be one of those removed here.
void Database::remove(SavedNote note)
{
    for (StoredView& stored : views_) stored.index.remove(note);
    std::erase(notes_, note);
    byId_.erase(note->noteId);
    byUniversalId_.erase(note->universalId);
    note->deleted = true;
    wasModified();
}

std::vector<SavedNote> Database::candidates(const View& view, const Condition& condition)
{
    std::vector<SavedNote> found;
    Condition::Places places;
    if (fullTextIndexed && !indexed_) {
        if (!words_.built()) words_.build(notes_);
        places = condition.candidates(words_);
    }
    const ViewIndex& all = index(view);
    if (!places) {
        for (const ViewIndex::Entry& entry : all.entries()) found.push_back(entry.note);
        return found;
    }
    std::vector<std::size_t> positions;
    for (const unsigned long place : *places) {
        const auto note =
            std::lower_bound(notes_.begin(), notes_.end(), place,
                             [](const SavedNote& one, unsigned long wanted) { return one->place < wanted; });
        if (note == notes_.end() || (*note)->place != place) continue;
        const std::size_t position = all.positionOf(**note);
        if (position < all.entries().size()) positions.push_back(position);
    }
    std::sort(positions.begin(), positions.end());
    positions.erase(std::unique(positions.begin(), positions.end()), positions.end());
    for (const std::size_t position : positions) found.push_back(all.entries()[position].note);
    return found;
}

void Database::leaveIndexBehind()
{
    indexed_.emplace();
    for (const SavedNote& note : notes_) indexed_->emplace(note->place, *note);
}

const Note* Database::asIndexed(const Note& note) const
{
    if (!indexed_) return &note;
    const auto found = indexed_->find(note.place);
    return found == indexed_->end() ? nullptr : &found->second;
}

std::vector<SavedNote> Database::search(const View& view, const Condition& condition, std::size_t most)
{
    std::vector<std::pair<unsigned, SavedNote>> ranked;
    for (const SavedNote& note : candidates(view, condition)) {
        const Note* const indexed = asIndexed(*note);
        if (const unsigned hits = indexed ? condition.hits(*indexed) : 0) ranked.emplace_back(hits, note);
    }
    if (fullTextIndexed)
        std::stable_sort(ranked.begin(), ranked.end(),
                         [](const auto& one, const auto& other) { return one.first > other.first; });
    if (most != 0 && ranked.size() > most) ranked.resize(most);
    std::vector<SavedNote> found;
    found.reserve(ranked.size());
    for (auto& [hits, note] : ranked) found.push_back(std::move(note));
    return found;
}

std::wstring abbreviatedName(std::wstring_view name)
{
    std::wstring abbreviated;
    while (!name.empty()) {
        const std::size_t end = std::min(name.find(L'/'), name.size());
        std::wstring_view part = name.substr(0, end);
        part.remove_prefix(part.find(L'=') + 1); // npos + 1 is 0
        if (!abbreviated.empty()) abbreviated += L'/';
        abbreviated += part;
        name.remove_prefix(std::min(end + 1, name.size()));
    }
    return abbreviated;
}

std::wstring commonName(std::wstring_view name)
{
    const std::wstring whole = abbreviatedName(name);
    return whole.substr(0, whole.find(L'/'));
}

}

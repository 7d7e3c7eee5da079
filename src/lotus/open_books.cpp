#include "lotus/open_books.h"

#include "common/error_trap.h"

#include <algorithm>
#include <utility>

namespace hublink {

namespace {

using automation::Object;

constexpr DATE second = 1.0 / 86'400;

// A search that took place so long ago might as well be this one.
constexpr DATE moment = 2 * second;

// What a book does not say of itself: that its file was replaced, that its view was
// designed anew or its index brought up to date.
constexpr DATE longest = 300 * second;

// A walk over a long history keeps no more answers than that at once.
constexpr std::size_t mostAnswers = 1'000;

// The clock may have been set meanwhile.
bool isWithin(DATE duration, DATE since, DATE now)
{
    return now >= since && now - since <= duration;
}

const std::wstring& viewName(const LotusBaseRef& book)
{
    return book.ViewTel.empty() ? book.MainView : book.ViewTel;
}

Object viewOf(const Object& database, const LotusBaseRef& book)
{
    return database.get(L"GetView", {viewName(book)}).object();
}

}

Object OpenBook::view(const LotusSession& session, const std::wstring& number)
{
    if (viewName(description_).empty()) { // a book that is out of reach is told all the same
        notesDatabase(session, description_);
        return Object();
    }
    if (!holds(number, session.host.now())) open(session);
    return view_;
}

// A view object shows later changes when it is refreshed or made anew (vendor's
// help, "NotesView class"). One that was searched by full text stays filtered, and no
// help says what a second search in it goes through: it serves the same number only.
bool OpenBook::holds(const std::wstring& number, DATE now)
{
    if (!view_ || !isWithin(longest, databaseOpenedAt_, now)) return false;
    const bool isFresh = isWithin(moment, confirmedAt_, now);
    if (description_.ViewTel.empty()) return isFresh && isFilteredFor(number);
    return isFresh || isUnchanged(now);
}

// The book tells the second of its last change (vendor's help, "LastModified
// property"). A further change in that second does not show, so the view must have
// been opened when it was over.
bool OpenBook::isUnchanged(DATE now)
{
    std::optional<DATE> modified;
    trapErrors([&] { modified = database_.get(L"LastModified").asDate(); });
    if (!modified || modified != modified_) {
        modified_ = modified;
        modifiedSeenAt_ = now;
        return false;
    }
    if (viewOpenedAt_ < modifiedSeenAt_ + moment) return false;
    confirmedAt_ = now;
    return true;
}

// Through the database that is open, if it still answers.
void OpenBook::open(const LotusSession& session)
{
    forget();
    const DATE now = session.host.now();
    if (!isWithin(longest, databaseOpenedAt_, now)) close();
    if (database_) trapErrors([&] { view_ = viewOf(database_, description_); });
    if (!view_) openDatabase(session, now);
    viewOpenedAt_ = confirmedAt_ = now;
}

// Notes also gives an object for a database that it could not open: one is kept
// once it has answered.
void OpenBook::openDatabase(const LotusSession& session, DATE now)
{
    close();
    const Object database = notesDatabase(session, description_);
    view_ = viewOf(database, description_);
    if (!view_) return;
    database_ = database;
    databaseOpenedAt_ = now;
}

const std::optional<LotusPerson>* OpenBook::answer(const std::wstring& number) const
{
    const auto found = answers_.find(number);
    return found == answers_.end() ? nullptr : &found->second;
}

void OpenBook::remember(const std::wstring& number, std::optional<LotusPerson> person)
{
    if (answers_.size() >= mostAnswers) answers_.clear();
    answers_.insert_or_assign(number, std::move(person));
}

void OpenBook::forget()
{
    view_ = Object();
    filteredFor_.reset();
    answers_.clear();
}

void OpenBook::close()
{
    forget();
    database_ = Object();
}

std::shared_ptr<OpenBook> OpenBooks::book(const LotusSession& session, const LotusAddressBook& description)
{
    if (session.NotesSession.dispatch() != session_.dispatch()) closeAll();
    session_ = session.NotesSession;
    const auto known = std::find_if(books_.begin(), books_.end(),
                                    [&](const auto& book) { return book->description() == description; });
    if (known != books_.end()) return *known;
    return books_.emplace_back(std::make_shared<OpenBook>(description));
}

void OpenBooks::forget()
{
    for (const auto& book : books_) book->forget();
}

void OpenBooks::forgetIfUnknown(const std::wstring& number)
{
    const auto knows = [&](const std::shared_ptr<OpenBook>& book) {
        const std::optional<LotusPerson>* const answer = book->answer(number);
        return answer && answer->has_value();
    };
    if (std::any_of(books_.begin(), books_.end(), knows)) return;
    for (const auto& book : books_) book->forget();
}

void OpenBooks::closeAll()
{
    books_.clear();
    workspace_ = Object();
}

Object OpenBooks::takeWorkspace()
{
    const Object workspace = std::exchange(workspace_, Object());
    return workspace ? workspace : notesWorkspace();
}

std::shared_ptr<OpenBooks> openBooks(const LotusSession& session)
{
    return session.openBooks ? session.openBooks : std::make_shared<OpenBooks>();
}

BooksKeptOpen::BooksKeptOpen(LotusSession& session) : session_(session), isOutermost_(!session.openBooks)
{
    if (isOutermost_) session_.openBooks = std::make_shared<OpenBooks>();
}

BooksKeptOpen::~BooksKeptOpen()
{
    if (isOutermost_) session_.openBooks.reset();
}

}

#include "lotus/open_books.h"

#include "common/error_trap.h"

#include <algorithm>
#include <utility>

namespace hublink {

namespace {

using automation::Object;

constexpr DATE second = 1.0 / 86'400;

// An answer of this age is used without asking the book again.
constexpr DATE freshFor = 2 * second;

// A database is opened anew at this age: it does not report that its file was replaced,
// its view redesigned or its index updated.
constexpr DATE maxAge = 300 * second;

// Limits the memory of a walk over a long call history.
constexpr std::size_t maxAnswers = 1'000;

// The clock may have been set meanwhile.
bool isWithin(DATE duration, DATE since, DATE now)
{
    return now >= since && now - since <= duration;
}

const std::wstring& viewName(const LotusBaseRef& book)
{
    return book.ViewTel.empty() ? book.MainView : book.ViewTel;
}

Object fetchView(const Object& database, const LotusBaseRef& book)
{
    return database.get(L"GetView", {viewName(book)}).object();
}

}

Object OpenBook::openView(const LotusSession& session, const std::wstring& number)
{
    if (viewName(description_).empty()) { // opened all the same: a book that is out of reach has to fail
        notesDatabase(session, description_);
        return Object();
    }
    if (!isUsable(number, session.host.now())) open(session);
    return view_;
}

// A view object shows later changes when it is refreshed or made anew (vendor's
// help, "NotesView class"). One that was searched by full text stays filtered, and no
// help says what a second search in it goes through: it serves the same number only.
bool OpenBook::isUsable(const std::wstring& number, DATE now)
{
    if (!view_ || !isWithin(maxAge, databaseOpenedAt_, now)) return false;
    const bool isFresh = isWithin(freshFor, confirmedAt_, now);
    if (description_.ViewTel.empty()) return isFresh && isFilteredFor(number);
    return isFresh || isUnchanged(now);
}

// The book reports the second of its last change (vendor's help, "LastModified
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
    if (viewOpenedAt_ < modifiedSeenAt_ + freshFor) return false;
    confirmedAt_ = now;
    return true;
}

// Through the database that is open, if it still answers.
void OpenBook::open(const LotusSession& session)
{
    forget();
    const DATE now = session.host.now();
    if (!isWithin(maxAge, databaseOpenedAt_, now)) close();
    if (database_) trapErrors([&] { view_ = fetchView(database_, description_); });
    if (!view_) openDatabase(session, now);
    viewOpenedAt_ = confirmedAt_ = now;
}

// Notes also gives an object for a database that it could not open: one is kept
// once it has answered.
void OpenBook::openDatabase(const LotusSession& session, DATE now)
{
    close();
    const Object database = notesDatabase(session, description_);
    view_ = fetchView(database, description_);
    if (!view_) return;
    database_ = database;
    databaseOpenedAt_ = now;
}

const std::optional<LotusPerson>* OpenBook::cachedAnswer(const std::wstring& number) const
{
    const auto found = answers_.find(number);
    return found == answers_.end() ? nullptr : &found->second;
}

void OpenBook::remember(const std::wstring& number, std::optional<LotusPerson> person)
{
    if (answers_.size() >= maxAnswers) answers_.clear();
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

std::shared_ptr<OpenBook> OpenBooks::findOrAdd(const LotusSession& session, const LotusAddressBook& description)
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
        const std::optional<LotusPerson>* const answer = book->cachedAnswer(number);
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

Object OpenBooks::acquireWorkspace()
{
    const Object workspace = std::exchange(workspace_, Object());
    return workspace ? workspace : notesWorkspace();
}

std::shared_ptr<OpenBooks> currentOpenBooks(const LotusSession& session)
{
    return session.openBooks ? session.openBooks : std::make_shared<OpenBooks>();
}

OpenBooksScope::OpenBooksScope(LotusSession& session) : session_(session), isOutermost_(!session.openBooks)
{
    if (isOutermost_) session_.openBooks = std::make_shared<OpenBooks>();
}

OpenBooksScope::~OpenBooksScope()
{
    if (isOutermost_) session_.openBooks.reset();
}

}

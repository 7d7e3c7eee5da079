// What one search in the address books has opened and found out, for the next one.
//
// An event asks for each of its parties several times, a walk over the call history
// for a few hundred numbers again and again. Nothing is kept beyond the event or the
// walk: an open database is in the way of whoever looks after it. And nothing serves
// that is older than two seconds, unless the book says that it has not changed since.
#pragma once

#include "lotus/lotus_person.h"
#include "lotus/lotus_session.h"

#include <map>
#include <memory>
#include <optional>
#include <vector>

namespace hublink {

// One address book, as it is searched by telephone number.
class OpenBook {
public:
    explicit OpenBook(const LotusAddressBook& description) : description_(description) {}

    const LotusAddressBook& description() const noexcept { return description_; }
    bool isOpen() const noexcept { return static_cast<bool>(database_); }

    // The view to search for the number, opened where it must be; empty when the book
    // has none of that name. Throws AutomationError.
    automation::Object openView(const LotusSession& session, const std::wstring& number);

    // Whether a full-text search has left the number's documents alone in the view.
    bool isFilteredFor(const std::wstring& number) const { return filteredFor_ == number; }
    void markFilteredFor(const std::wstring& number) { filteredFor_ = number; }

    // What the view has answered about a number: a person, or that nobody has it. Null when
    // it was not asked. Call `openView` first, which forgets answers that may be stale.
    const std::optional<LotusPerson>* cachedAnswer(const std::wstring& number) const;
    void remember(const std::wstring& number, std::optional<LotusPerson> person);

    // Drops the view and its answers; `close` drops the database too.
    void forget();
    void close();

private:
    bool isUsable(const std::wstring& number, DATE now);
    bool isUnchanged(DATE now);
    void open(const LotusSession& session);
    void openDatabase(const LotusSession& session, DATE now);

    const LotusAddressBook description_;
    automation::Object database_;
    automation::Object view_;
    std::optional<std::wstring> filteredFor_; // the number, once a full-text search has found somebody
    DATE databaseOpenedAt_ = 0;
    DATE viewOpenedAt_ = 0;
    DATE confirmedAt_ = 0;         // when the view was last known to be up to date
    std::optional<DATE> modified_; // of the last change, as the book reports it
    DATE modifiedSeenAt_ = 0;      // when it was reported first
    std::map<std::wstring, std::optional<LotusPerson>> answers_;
};

class OpenBooks {
public:
    // The book of that description, open or not. All are closed when the session is
    // another one than they were opened in.
    std::shared_ptr<OpenBook> findOrAdd(const LotusSession& session, const LotusAddressBook& description);

    // A document was saved in one of the books. Which one is not known, since a server
    // may go by several names: each book forgets what it has shown.
    void forget();

    // The front-end object of an earlier call, or a new one. The caller gives it back
    // after its own calls have succeeded: they fail once Notes has ended.
    automation::Object acquireWorkspace();
    void returnWorkspace(const automation::Object& workspace) { workspace_ = workspace; }

    // Somebody may have got a number by now that nobody had: where no book knew it, the
    // views are opened anew.
    void forgetIfUnknown(const std::wstring& number);

private:
    void closeAll();

    automation::Object session_;
    automation::Object workspace_;
    std::vector<std::shared_ptr<OpenBook>> books_;
};

// The books of the event or walk under way; outside of one, new ones for this use only.
std::shared_ptr<OpenBooks> currentOpenBooks(const LotusSession& session);

// While one lives, what a search has opened and found serves the next search. An event
// that comes while a walk shows a message box uses the walk's books.
class OpenBooksScope {
public:
    explicit OpenBooksScope(LotusSession& session);
    ~OpenBooksScope();
    OpenBooksScope(const OpenBooksScope&) = delete;
    OpenBooksScope& operator=(const OpenBooksScope&) = delete;

private:
    LotusSession& session_;
    const bool isOutermost_;
};

}

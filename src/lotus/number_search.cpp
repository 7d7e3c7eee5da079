#include "lotus/number_search.h"

#include "automation/error.h"
#include "common/error_trap.h"
#include "common/phone_number.h"
#include "lotus/book_search.h"
#include "lotus/documents.h"
#include "lotus/open_books.h"

#include <windows.h>

#include <algorithm>
#include <functional>
#include <utility>

namespace hublink {

namespace {

using automation::Object;

// The document for a number, in one of its variants, through the view that the book has
// open for the number.
Object findByNumber(const LotusSession& session, OpenBook& open, Object view, const std::wstring& number,
                    const std::vector<std::wstring>& numberVariants)
{
    if (open.isFilteredFor(number)) {
        if (const Object document = firstDocument(view)) return document;
        open.forget(); // it has been deleted meanwhile
        view = open.openView(session, number);
    }
    const LotusAddressBook& book = open.description();
    const bool isKeyed = !book.ViewTel.empty();
    const Object document = findDocument(view, isKeyed, book.PhoneNumber, numberVariants);
    if (document && !isKeyed) open.markFilteredFor(number);
    return document;
}

// False when the search fails in what was open before it. Throws AutomationError when it
// fails in a book that it has opened anew itself.
bool searchInOpenBook(OpenBook& open, const std::function<void(OpenBook&)>& search)
{
    if (!open.isOpen()) return false;
    try {
        search(open);
        return true;
    } catch (const automation::AutomationError&) {
        if (!open.isOpen()) throw;
        return false;
    }
}

// What is open may have gone, with its database or with all of Notes: then everything is
// opened anew, as if nothing had been open. The caller keeps the result for as long as it
// uses what was found: a document may go with its database.
std::shared_ptr<OpenBook> searchBook(const LotusSession& session, const LotusAddressBook& book,
                                     const std::function<void(OpenBook&)>& search)
{
    const std::shared_ptr<OpenBook> open = currentOpenBooks(session)->findOrAdd(session, book);
    if (searchInOpenBook(*open, search)) return open;
    open->close();
    search(*open);
    return open;
}

// The number without separators, then as it is; once where both are the same.
std::vector<std::wstring> numberVariants(const std::wstring& number)
{
    const std::wstring stripped = StripPhoneNumber(number);
    if (stripped == number) return {number};
    return {stripped, number};
}

// False when the mail address could not be read, without which a person is one too.
bool readPerson(const Object& document, const LotusAddressBook& book, LotusPerson& person)
{
    person.lastName = firstItemValue(document, book.LastName);
    person.firstName = firstItemValue(document, book.FirstName);
    person.fullName = firstItemValue(document, book.FullName);
    const std::optional<std::wstring> mail = readFirstNonEmptyItemValue(document, book.MailAddress);
    person.mail = mail.value_or(L"");
    person.noteId = document.get(L"NoteId").text();
    return mail.has_value();
}

// Whoever has the number in the book. A recent answer is used again, unless `document`
// is wanted: the user may have changed that meanwhile. Fields that have been read from
// the same document are not read again.
bool findPerson(const LotusSession& session, OpenBook& open, const std::wstring& number, LotusPerson& person,
                Object* document)
{
    const Object view = open.openView(session, number);
    if (!view) return false;
    const std::optional<LotusPerson>* const answer = open.cachedAnswer(number);
    if (answer && !document) {
        if (*answer) person = **answer;
        return answer->has_value();
    }
    const std::optional<LotusPerson> known = answer ? *answer : std::nullopt;
    const Object found = findByNumber(session, open, view, number, numberVariants(number));
    if (!found) {
        open.remember(number, std::nullopt);
        return false;
    }
    if (known && known->noteId == found.get(L"NoteId").text()) person = *known;
    else if (readPerson(found, open.description(), person)) open.remember(number, person);
    else open.forget(); // so that the next search reads the document again
    if (document) *document = found;
    return true;
}

// A copy that is open already is closed after the new one has opened, so that
// one stays on the screen.
void showOnce(const LotusAddressBook& book, const Object& document)
{
    Object openCopy;
    const bool wasCurrent = IsCurrentDocument(document, openCopy);
    openDocument(book, document, OpenFor::reading);
    if (wasCurrent) openCopy.call(L"Close");
}

}

bool WantedFieldsPresent(const LotusPerson& person, const std::wstring& wanted)
{
    auto mayMiss = std::count(wanted.begin(), wanted.end(), L',');
    const auto check = [&](const std::wstring& value, const wchar_t* name) {
        if (value.empty() && wanted.find(name) != std::wstring::npos) --mayMiss;
    };
    check(person.lastName, L"LastName");
    check(person.firstName, L"FirstName");
    check(person.mail, L"InternetAddress");
    check(person.fullName, L"FullName");
    return mayMiss >= 0;
}

bool SearchInPublicAdressBook(LotusSession& session, const LotusAddressBook& book, const std::wstring& number,
                              LotusPerson& person, Show show)
{
    if (!session.LotusReady) return false;
    bool found = false;
    const auto search = [&] {
        const LotusPerson before = person;
        Object document;
        bool isKnown = false;
        const std::shared_ptr<OpenBook> kept = searchBook(session, book, [&](OpenBook& open) {
            person = before;
            isKnown = findPerson(session, open, number, person, show == Show::yes ? &document : nullptr);
        });
        if (isKnown && show == Show::yes) showOnce(book, document);
        found = isKnown;
    };
    trapErrors(search, [&] { logNoAccess(session, book, L"SearchInPublicAdressBook"); });
    return found;
}

LotusSearchResult SearchByNumber(LotusSession& session, const std::wstring& number, Show show,
                                 const std::wstring& wanted, LotusPerson known)
{
    LotusSearchResult result{false, std::move(known), {}};
    // A copy: a re-initialisation during a call may replace the list.
    for (const LotusAddressBook& book : std::vector(session.LotusAddressBooks)) {
        if (!SearchInPublicAdressBook(session, book, number, result.person, show)) continue;
        if (!wanted.empty() && !WantedFieldsPresent(result.person, wanted)) continue;
        result.book = book;
        result.isFound = true;
        break;
    }
    return result;
}

std::wstring FindNoteIdInPersonalBook(const LotusSession& session, const std::wstring& number)
{
    std::wstring noteId;
    if (!session.LotusReady || session.nSelectedPersonal == -1) return noteId;
    trapErrors([&] {
        const LotusAddressBook book = session.LotusAddressBooks.at(static_cast<std::size_t>(session.nSelectedPersonal));
        searchBook(session, book, [&](OpenBook& open) {
            open.forget(); // somebody may have saved the contact just now: it must not be made twice
            const Object document = findByNumber(session, open, open.openView(session, number), number, {number});
            if (document) noteId = document.get(L"NoteId").text();
        });
    });
    return noteId;
}

}

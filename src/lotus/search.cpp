#include "lotus/search.h"

#include "automation/error.h"
#include "common/error_trap.h"
#include "common/phone_number.h"
#include "lotus/documents.h"
#include "lotus/log_document.h"
#include "lotus/open_books.h"

#include <windows.h>

#include <algorithm>
#include <functional>
#include <utility>

namespace hublink {

namespace {

using automation::Object;

Object firstDocument(const Object& view)
{
    return view.get(L"GetFirstDocument").object();
}

Object keyedDocument(const Object& view, const std::wstring& key)
{
    return view.get(L"GetDocumentByKey", {key, true}).object();
}

// A query cannot say a double quote, and takes "*" and "?" for any other text;
// a value without a letter or a digit has no word to look for.
bool canBeSaid(const std::wstring& value)
{
    return value.find_first_of(L"\"*?") == std::wstring::npos &&
           std::any_of(value.begin(), value.end(), [](wchar_t c) { return IsCharAlphaNumericW(c); });
}

// Leaves at most one document in the view, and tells whether there is one.
bool filterView(const Object& view, const std::wstring& query)
{
    return !query.empty() && view.get(L"FTSearch", {query, std::int16_t{1}}).int32() != 0;
}

// The first document of the view for one of the values, in their order: by its key,
// or by full-text search, which finds nobody by a value that no query can say.
Object findDocument(const Object& view, bool isKeyed, const std::vector<std::wstring>& items,
                    const std::vector<std::wstring>& values)
{
    if (!view) return Object();
    for (const std::wstring& value : values) {
        if (isKeyed) {
            if (const Object document = keyedDocument(view, value)) return document;
        } else if (canBeSaid(value) && filterView(view, BuildFullTextQuery(items, value))) {
            return firstDocument(view);
        }
    }
    return Object();
}

// By telephone number, in one of its writings, through the view that the book has
// open for the number.
Object findDocument(const LotusSession& session, OpenBook& open, Object view, const std::wstring& number,
                    const std::vector<std::wstring>& writings)
{
    if (open.isFilteredFor(number)) {
        if (const Object document = firstDocument(view)) return document;
        open.forget(); // it has been deleted meanwhile
        view = open.view(session, number);
    }
    const LotusAddressBook& book = open.description();
    const bool isKeyed = !book.ViewTel.empty();
    const Object document = findDocument(view, isKeyed, book.PhoneNumber, writings);
    if (document && !isKeyed) open.wasFilteredFor(number);
    return document;
}

// What is open may have gone, with its database or with all of Notes: then everything
// is opened anew, as if nothing had been open. The book stays open for who asked, as
// long as he keeps it: what is in a database may go with it.
std::shared_ptr<OpenBook> askBook(const LotusSession& session, const LotusAddressBook& book,
                                  const std::function<void(OpenBook&)>& ask)
{
    const std::shared_ptr<OpenBook> open = openBooks(session)->book(session, book);
    if (open->isOpen()) try {
            ask(*open);
            return open;
        } catch (const automation::AutomationError&) {
            if (!open->isOpen()) throw; // it has been opened anew, in vain
        }
    open->close();
    ask(*open);
    return open;
}

// The number without separators, then as it is; once where both are the same.
std::vector<std::wstring> writings(const std::wstring& number)
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

// Whoever has the number in the book, as it tells now or did a moment ago; a
// document only where one is wanted, for the user may have changed it meanwhile.
// What has been read of that very document is not read again.
bool findPerson(const LotusSession& session, OpenBook& open, const std::wstring& number, LotusPerson& person,
                Object* document)
{
    const Object view = open.view(session, number);
    if (!view) return false;
    const std::optional<LotusPerson>* const answer = open.answer(number);
    if (answer && !document) {
        if (*answer) person = **answer;
        return answer->has_value();
    }
    const std::optional<LotusPerson> known = answer ? *answer : std::nullopt;
    const Object found = findDocument(session, open, view, number, writings(number));
    if (!found) {
        open.remember(number, std::nullopt);
        return false;
    }
    if (known && known->noteId == found.get(L"NoteId").text()) person = *known;
    else if (readPerson(found, open.description(), person)) open.remember(number, person);
    else open.forget(); // the next search may have more luck
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

void logNoAccess(LotusSession& session, const LotusAddressBook& book, const wchar_t* procedure)
{
    WriteLotusLog(session, L"Error acces " + book.Server + L" " + book.Base + L" in " + procedure);
}

}

std::wstring BuildFullTextQuery(const std::vector<std::wstring>& items, const std::wstring& value)
{
    std::wstring query;
    for (const std::wstring& name : items) {
        if (!query.empty()) query += L" OR ";
        query += L"[" + name + L"] CONTAINS \"" + value + L"\"";
    }
    return query;
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
        const std::shared_ptr<OpenBook> kept = askBook(session, book, [&](OpenBook& open) {
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

bool SearchInPublicAdressBookByMail(LotusSession& session, const std::wstring& mail, const LotusAddressBook& book,
                                    Party& person, Show show)
{
    if (!session.LotusReady) return false;
    bool found = false;
    const auto search = [&] {
        const Object database = notesDatabase(session, book);
        const bool isKeyed = !book.ViewMail.empty();
        const std::wstring& name = isKeyed ? book.ViewMail : book.MainView;
        if (name.empty()) return;
        const Object view = database.get(L"GetView", {name}).object();
        const Object document = findDocument(view, isKeyed, book.MailAddress, {mail});
        if (!document) return;
        person.lastName = firstItemValue(document, book.LastName);
        person.firstName = firstItemValue(document, book.FirstName);
        person.number = FirstNonEmptyItemValue(document, book.PhoneNumber);
        if (!person.number.empty() && show == Show::yes) openDocument(book, document, OpenFor::reading);
        found = true;
    };
    trapErrors(search, [&] { logNoAccess(session, book, L"SearchInPublicAdressBookByMail"); });
    return found;
}

bool SearchByMail(LotusSession& session, const std::wstring& mail, Party& person, Show show)
{
    for (const LotusAddressBook& book : std::vector(session.LotusAddressBooks))
        if (SearchInPublicAdressBookByMail(session, mail, book, person, show) && !person.number.empty()) return true;
    return false;
}

std::wstring FindNoteIdInPersonalBook(const LotusSession& session, const std::wstring& number)
{
    std::wstring noteId;
    if (!session.LotusReady || session.nSelectedPersonal == -1) return noteId;
    trapErrors([&] {
        const LotusAddressBook book = session.LotusAddressBooks.at(static_cast<std::size_t>(session.nSelectedPersonal));
        askBook(session, book, [&](OpenBook& open) {
            open.forget(); // somebody may have saved the contact just now: it must not be made twice
            const Object document = findDocument(session, open, open.view(session, number), number, {number});
            if (document) noteId = document.get(L"NoteId").text();
        });
    });
    return noteId;
}

}

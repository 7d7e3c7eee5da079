#include "lotus/search.h"

#include "common/error_trap.h"
#include "common/phone_number.h"
#include "lotus/documents.h"
#include "lotus/log_document.h"

#include <windows.h>

#include <algorithm>

namespace {

using automation::Object;

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

// The first document for one of the values, in their order: through the view
// with that key where the book has one, else by full-text search, which finds
// nobody by a value that no query can say.
Object findDocument(const Object& database, const std::wstring& keyView, const std::wstring& mainView,
                    const std::vector<std::wstring>& items, const std::vector<std::wstring>& values)
{
    const bool isKeyed = !keyView.empty();
    if (!isKeyed && mainView.empty()) return Object();
    const Object view = database.get(L"GetView", {isKeyed ? keyView : mainView}).object();
    if (!view) return Object();
    for (const std::wstring& value : values) {
        if (isKeyed) {
            if (const Object document = keyedDocument(view, value)) return document;
        } else if (canBeSaid(value) && filterView(view, BuildFullTextQuery(items, value))) {
            return view.get(L"GetFirstDocument").object();
        }
    }
    return Object();
}

// The number without separators, then as it is; once where both are the same.
std::vector<std::wstring> writings(const std::wstring& number)
{
    const std::wstring stripped = StripPhoneNumber(number);
    if (stripped == number) return {number};
    return {stripped, number};
}

void readPerson(const Object& document, const LotusAddressBook& book, LotusPerson& person)
{
    person.LastName = firstItemValue(document, book.LastName);
    person.FirstName = firstItemValue(document, book.FirstName);
    person.FullName = firstItemValue(document, book.FullName);
    person.Mail = FirstNonEmptyItemValue(document, book.MailAddress);
    person.NoteId = document.get(L"NoteId").text();
}

// A copy that is open already is closed after the new one has opened, so that
// one stays on the screen.
void showOnce(const LotusAddressBook& book, const Object& document)
{
    Object openCopy;
    const bool wasCurrent = IsCurrentDocument(document, openCopy);
    openDocument(book, document, false);
    if (wasCurrent) openCopy.call(L"Close");
}

void logNoAccess(LotusSession& session, const LotusAddressBook& book, const wchar_t* procedure)
{
    WriteLotusLog(session, L"Error acces " + book.Server + L" " + book.Base + L" in " + procedure);
}

}

std::wstring BuildFullTextQuery(const std::vector<std::wstring>& ItemNames, const std::wstring& Value)
{
    std::wstring query;
    for (const std::wstring& name : ItemNames) {
        if (!query.empty()) query += L" OR ";
        query += L"[" + name + L"] CONTAINS \"" + Value + L"\"";
    }
    return query;
}

bool WantedFieldsPresent(const LotusPerson& person, const std::wstring& Wanted)
{
    auto mayMiss = std::count(Wanted.begin(), Wanted.end(), L',');
    const auto check = [&](const std::wstring& value, const wchar_t* name) {
        if (value.empty() && Wanted.find(name) != std::wstring::npos) --mayMiss;
    };
    check(person.LastName, L"LastName");
    check(person.FirstName, L"FirstName");
    check(person.Mail, L"InternetAddress");
    check(person.FullName, L"FullName");
    return mayMiss >= 0;
}

bool SearchInPublicAdressBook(LotusSession& session, const LotusAddressBook& Book, const std::wstring& Number,
                              LotusPerson& person, bool Show)
{
    if (!session.LotusReady) return false;
    bool found = false;
    const auto search = [&] {
        const Object database = notesDatabase(session, Book);
        const Object document =
            findDocument(database, Book.ViewTel, Book.MainView, Book.PhoneNumber, writings(Number));
        if (!document) return;
        readPerson(document, Book, person);
        if (Show) showOnce(Book, document);
        found = true;
    };
    trapErrors(L"SearchInPublicAdressBook", search, [&] { logNoAccess(session, Book, L"SearchInPublicAdressBook"); });
    return found;
}

bool SearchByNumber(LotusSession& session, const std::wstring& Number, LotusPerson& person, bool Show,
                    const std::wstring& Wanted, LotusAddressBook& FoundBook)
{
    if (!session.LotusReady) return false;
    // A copy: a re-initialisation during a call may replace the list.
    for (const LotusAddressBook& book : std::vector(session.LotusAddressBooks)) {
        if (!SearchInPublicAdressBook(session, book, Number, person, Show)) continue;
        if (!Wanted.empty() && !WantedFieldsPresent(person, Wanted)) continue;
        FoundBook = book;
        return true;
    }
    return false;
}

bool SearchInPublicAdressBookByMail(LotusSession& session, const std::wstring& Mail, const LotusAddressBook& Book,
                                    std::wstring& Phone, std::wstring& LastName, std::wstring& FirstName, bool Show)
{
    if (!session.LotusReady) return false;
    bool found = false;
    const auto search = [&] {
        const Object database = notesDatabase(session, Book);
        const Object document = findDocument(database, Book.ViewMail, Book.MainView, Book.MailAddress, {Mail});
        if (!document) return;
        LastName = firstItemValue(document, Book.LastName);
        FirstName = firstItemValue(document, Book.FirstName);
        Phone = FirstNonEmptyItemValue(document, Book.PhoneNumber);
        if (!Phone.empty() && Show) openDocument(Book, document, false);
        found = true;
    };
    trapErrors(L"SearchInPublicAdressBookByMail", search,
               [&] { logNoAccess(session, Book, L"SearchInPublicAdressBookByMail"); });
    return found;
}

bool SearchByMail(LotusSession& session, const std::wstring& Mail, std::wstring& Phone, std::wstring& LastName,
                  std::wstring& FirstName, bool Show)
{
    if (!session.LotusReady) return false;
    for (const LotusAddressBook& book : std::vector(session.LotusAddressBooks))
        if (SearchInPublicAdressBookByMail(session, Mail, book, Phone, LastName, FirstName, Show) && !Phone.empty())
            return true;
    return false;
}

std::wstring FindNoteIdInPersonalBook(const LotusSession& session, const std::wstring& Number)
{
    std::wstring noteId;
    if (!session.LotusReady || session.nSelectedPersonal == -1) return noteId;
    trapErrors(L"FindNoteIdInPersonalBook", [&] {
        const LotusAddressBook book = session.LotusAddressBooks.at(session.nSelectedPersonal);
        const Object database = notesDatabase(session, book);
        const Object document = findDocument(database, book.ViewTel, book.MainView, book.PhoneNumber, {Number});
        if (document) noteId = document.get(L"NoteId").text();
    });
    return noteId;
}

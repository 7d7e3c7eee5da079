#include "lotus/mail_search.h"

#include "common/error_trap.h"
#include "lotus/book_search.h"
#include "lotus/documents.h"

namespace hublink {

using automation::Object;

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

}

#include "lotus/contacts.h"

#include "common/configuration.h"
#include "common/error_trap.h"
#include "common/phone_number.h"
#include "lotus/documents.h"
#include "lotus/log_document.h"
#include "lotus/number_search.h"
#include "lotus/open_books.h"

namespace hublink {

namespace {

using automation::Object;

// Items without a name are not written.
void appendItem(const Object& document, const std::wstring& name, const std::wstring& value)
{
    if (!name.empty()) document.call(L"AppendItemValue", {name, value});
}

void fill(const Object& document, const LotusAddressBook& book, const Party& contact)
{
    document.put(L"Form", book.Form);
    document.put(L"Type", book.TypeForm);
    if (!book.PhoneNumber.empty()) appendItem(document, book.PhoneNumber.front(), StripPhoneNumber(contact.number));
    appendItem(document, book.FirstName, contact.firstName);
    appendItem(document, book.LastName, contact.lastName);
    appendItem(document, book.FullName, contact.firstName + L" " + contact.lastName);
}

void save(const LotusSession& session, const Object& document)
{
    currentOpenBooks(session)->forget();
    saveDocument(document);
}

void logNewContact(LotusSession& session, const Party& contact)
{
    WriteLotusLog(session, L"Create contact " + contact.number + L" " + contact.lastName + L" " + contact.firstName);
}

}

std::wstring CreateContactDocument(LotusSession& session, const Party& party, Show show)
{
    std::wstring noteId;
    if (!session.LotusReady || session.nSelectedPersonal == -1) return noteId;
    trapErrors([&] {
        const LotusAddressBook book = session.LotusAddressBooks.at(static_cast<std::size_t>(session.nSelectedPersonal));
        const Object database = notesDatabase(session, book);
        const Object document = database.get(L"CREATEDOCUMENT").object();
        fill(document, book, party);
        if (show == Show::yes) openDocument(book, document, OpenFor::editing);
        else save(session, document);
        noteId = document.get(L"NoteId").text();
    });
    return noteId;
}

void ShowOrCreateCaller(LotusSession& session, const Party& caller)
{
    trapErrors([&] {
        const bool mayCreate = session.host.configuration().bgSetNewContact;
        if (mayCreate) currentOpenBooks(session)->forgetIfUnknown(caller.number);
        if (SearchByNumber(session, caller.number, Show::yes).isFound) return;
        if (!session.host.configuration().bgSetNewContact) return;
        if (!CreateContactDocument(session, caller, Show::yes).empty()) logNewContact(session, caller);
    });
}

std::wstring CreateContactFromEntry(LotusSession& session, const SoftphoneEntry& entry)
{
    std::wstring noteId;
    trapErrors([&] {
        const Party party{StripPhoneNumber(entry.number()), entry.lastName(), entry.firstName()}; // asked in this order
        noteId = CreateContactDocument(session, party, Show::no);
        logNewContact(session, party);
    });
    return noteId;
}

}

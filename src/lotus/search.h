// Finds a person in the Notes address books by telephone number or by mail
// address. No error leaves these procedures: a failing search has found nobody.
#pragma once

#include "lotus/lotus_session.h"

#include <string>
#include <vector>

// What a search finds out. It stays as it was until a document is found.
struct LotusPerson {
    std::wstring LastName;
    std::wstring FirstName;
    std::wstring FullName;
    std::wstring Mail;
    std::wstring NoteId;
};

// The full-text query for documents with the value in one of the items; "" for no items.
std::wstring BuildFullTextQuery(const std::vector<std::wstring>& ItemNames, const std::wstring& Value);

// Whether enough of the wanted fields ("LastName", "FirstName",
// "InternetAddress", "FullName", separated by commas) are filled: all but one
// may be missing, a single one may not.
bool WantedFieldsPresent(const LotusPerson& person, const std::wstring& Wanted);

// Searches the books in their order for a person with the number and the
// wanted fields ("" for none) and, with `Show`, opens each document found. A
// person without the wanted fields stays in `person` although the result is False.
bool SearchByNumber(LotusSession& session, const std::wstring& Number, LotusPerson& person, bool Show,
                    const std::wstring& Wanted, LotusAddressBook& FoundBook);
bool SearchInPublicAdressBook(LotusSession& session, const LotusAddressBook& Book, const std::wstring& Number,
                              LotusPerson& person, bool Show);

// Searches the books in their order for the telephone number of the person
// with the mail address.
bool SearchByMail(LotusSession& session, const std::wstring& Mail, std::wstring& Phone, std::wstring& LastName,
                  std::wstring& FirstName, bool Show);
bool SearchInPublicAdressBookByMail(LotusSession& session, const std::wstring& Mail, const LotusAddressBook& Book,
                                    std::wstring& Phone, std::wstring& LastName, std::wstring& FirstName, bool Show);

// The NoteId of the document with exactly this number in the selected personal
// address book; "" when there is none.
std::wstring FindNoteIdInPersonalBook(const LotusSession& session, const std::wstring& Number);

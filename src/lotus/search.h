// Finds a person in the Notes address books by telephone number or by mail
// address. No error leaves these procedures: a failing search has found nobody.
#pragma once

#include "common/party.h"
#include "common/show.h"
#include "lotus/lotus_session.h"

#include <string>
#include <vector>

namespace hublink {

// What a search finds out about a person.
struct LotusPerson {
    std::wstring lastName;
    std::wstring firstName;
    std::wstring fullName;
    std::wstring mail;
    std::wstring noteId;
};

// The full-text query for documents with the value in one of the items; "" for no items.
std::wstring BuildFullTextQuery(const std::vector<std::wstring>& items, const std::wstring& value);

// Whether enough of the wanted fields ("LastName", "FirstName",
// "InternetAddress", "FullName", separated by commas) are filled: all but one
// may be missing, a single one may not.
bool WantedFieldsPresent(const LotusPerson& person, const std::wstring& wanted);

struct LotusSearchResult {
    bool isFound = false;
    LotusPerson person;    // not found: perhaps one without the wanted fields
    LotusAddressBook book; // the person's
};

// Searches the books in their order for a person with the number and the
// wanted fields ("" for none) and, if told to, shows each document found.
// The texts of `known` stay where no document tells them.
LotusSearchResult SearchByNumber(LotusSession& session, const std::wstring& number, Show show,
                                 const std::wstring& wanted = L"", LotusPerson known = {});

// The same in one book. `person` stays as it was where no document is found.
bool SearchInPublicAdressBook(LotusSession& session, const LotusAddressBook& book, const std::wstring& number,
                              LotusPerson& person, Show show);

// Searches the books in their order for the telephone number of the person
// with the mail address. `person` stays as it was until a document is found.
bool SearchByMail(LotusSession& session, const std::wstring& mail, Party& person, Show show);
bool SearchInPublicAdressBookByMail(LotusSession& session, const std::wstring& mail, const LotusAddressBook& book,
                                    Party& person, Show show);

// The NoteId of the document with exactly this number in the selected personal
// address book; "" when there is none.
std::wstring FindNoteIdInPersonalBook(const LotusSession& session, const std::wstring& number);

}

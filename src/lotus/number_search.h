// Finds a person in the Notes address books by telephone number. No error leaves these
// procedures: a failing search has found nobody.
#pragma once

#include "common/show.h"
#include "lotus/lotus_person.h"
#include "lotus/lotus_session.h"

#include <string>

namespace hublink {

// Whether enough of the wanted fields ("LastName", "FirstName",
// "InternetAddress", "FullName", separated by commas) are filled: all but one
// may be missing, a single one may not.
bool WantedFieldsPresent(const LotusPerson& person, const std::wstring& wanted);

struct LotusSearchResult {
    bool isFound = false;
    LotusPerson person;    // not found: may be somebody without the wanted fields
    LotusAddressBook book; // the person's
};

// Searches the books in their order for a person with the number and the
// wanted fields ("" for none) and, with `Show::yes`, shows each document found.
// The texts of `known` stay where no document holds them.
LotusSearchResult SearchByNumber(LotusSession& session, const std::wstring& number, Show show,
                                 const std::wstring& wanted = L"", LotusPerson known = {});

// The same in one book. `person` stays as it was where no document is found.
bool SearchInPublicAdressBook(LotusSession& session, const LotusAddressBook& book, const std::wstring& number,
                              LotusPerson& person, Show show);

// The NoteId of the document with exactly this number in the selected personal
// address book; "" when there is none.
std::wstring FindNoteIdInPersonalBook(const LotusSession& session, const std::wstring& number);

}

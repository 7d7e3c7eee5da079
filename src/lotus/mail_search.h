// Finds the telephone number of a person in the Notes address books by mail address. No
// error leaves these procedures: a failing search has found nobody.
#pragma once

#include "common/party.h"
#include "common/show.h"
#include "lotus/lotus_session.h"

#include <string>

namespace hublink {

// Searches the books in their order for the telephone number of the person
// with the mail address. `person` stays as it was until a document is found.
bool SearchByMail(LotusSession& session, const std::wstring& mail, Party& person, Show show);
bool SearchInPublicAdressBookByMail(LotusSession& session, const std::wstring& mail, const LotusAddressBook& book,
                                    Party& person, Show show);

}

// The Lotus sections of the ini file: which address books are searched and in
// which order, how the call history and the log are laid out, and four
// switches. The reading ends quietly at the first error; what was read before
// it stays. A base that names "<server name>" lies on the session's own server, or
// where Notes reports none, on the user's mail server.
#pragma once

#include "lotus/lotus_session.h"

#include <cstdint>

namespace hublink {

// Section "lotus base description " and the index. What cannot be read of a
// book leaves the books and settings behind it alone.
void ReadLotusBaseDescription(const LotusSession& session, std::int16_t index, LotusAddressBook& book);

// Section "lotus", the address books in their order, the switches and section
// "lotus call log description". The books are listed in the log document.
void ReadLotusIni(LotusSession& session);

// Section "lotus personnel log description".
void ReadLotusPersonalLogIni(LotusSession& session);

// Writes the list of the address books into the log document, as one entry.
void DumpLotusAddressBooks(LotusSession& session);

}

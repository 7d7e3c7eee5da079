// The records that the morning starts with.
#pragma once

#include <string>

namespace desk::player {

// Some hundred contacts, their numbers written in several ways; among them
// Marc Durand (01.23.45.67.89) and, with a mail address, Claire Petit (4711).
std::string morningContacts();

// The softphone of Anna Keller: an address book of which Outlook knows all but
// `strangers`, and a history of `callsOfYesterday`.
inline constexpr int strangers = 3;
inline constexpr int callsOfYesterday = 12;
std::string morningSoftphone();

}

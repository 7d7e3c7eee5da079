// The records that the morning starts with.
#pragma once

#include <string>

namespace desk::player {

// Some hundred contacts, their numbers written in several ways; among them
// Marc Durand (01.23.45.67.89) and, with a mail address, Claire Petit (4711).
std::string morningContacts();

// The softphone of Anna Keller.
std::string morningSoftphone();

}

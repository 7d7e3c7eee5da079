// The records that the morning starts with.
#pragma once

#include <string>
#include <vector>

namespace desk::player {

// Some hundred contacts, their numbers written in several ways; among them
// Marc Durand (01.23.45.67.89) and, with a mail address, Claire Petit (4711).
std::string morningContacts();

// The softphone of Anna Keller: an address book of which Outlook and the
// personal book of Notes know all but these, and a history.
inline constexpr int strangersToOutlook = 3;
inline constexpr int strangersToNotes = 6;
inline constexpr int callsOfYesterday = 12;
std::string morningSoftphone();

// The databases of Notes: a company's book with a main view only, in which
// Marc Durand is; a branch's book without a view to search; the personal book with views
// by number and by mail address, with Claire Petit and Nora Lind in it; Anna's
// mail with a mail of Claire's and group calendars; the call history; the log.
inline constexpr int personalContacts = 2;
std::string morningDatabases();

// How the ini file describes them.
struct Setting {
    const char* section;
    const char* key;
    const char* value;
};
const std::vector<Setting>& notesSettings();

}

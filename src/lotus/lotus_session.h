// Everything that the program keeps about Lotus Notes between calls, under its
// given names. One record exists, owned by the form; the procedures of this
// room take it as their first argument.
#pragma once

#include "automation/object.h"
#include "common/groupware_state.h"
#include "common/host.h"
#include "lotus/database_layout.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace hublink {

class Dictionary;
class OpenBooks;

// The sections of the ini file that are about Notes.
struct LotusConfiguration {
    std::int16_t nbPublicAddressBook = 0;            // address books described in the ini file
    std::vector<LotusAddressBook> LotusAddressBooks; // those that are searched, in search order
    std::int16_t nSelectedPersonal = -1;             // index of the first personal one, -1 for none
    bool bShowGrpwAgenda = false;                    // group calendars may be shown
    bool bPopUpGrpwAgenda = false;                   // they come up for a forwarded call
    bool bAlwaysVerifyPhoneNumber = false;           // a mail's number is looked up although it has one
    bool bCallInMail = false;                        // the sender's number is put into a mail
    CallLogDescription LotusCallLog;
    PersonalLogDescription LotusPersonalLog;

    bool operator==(const LotusConfiguration&) const = default;
};

struct LotusSession : LotusConfiguration {
    LotusSession(Host& host, GroupwareState& groupware, const Dictionary& dictionary)
        : host(host), groupware(groupware), dictionary(dictionary)
    {}

    Host& host;
    GroupwareState& groupware;
    const Dictionary& dictionary;

    automation::Object NotesSession;    // empty until created and after a failed initialisation
    bool LotusReady = false;            // an initialisation has run to its end; stays when Notes goes away
    bool LotusMustInit = true;          // the next `InitLotus` has something to do
    bool NewLogDocument = false;        // the next log line opens a new log document
    bool NotesRelease5 = false;         // whether Notes called itself that; read by nobody
    std::wstring MailServer;            // the user's mail database
    std::wstring MailFile;
    automation::Object mailDatabase;    // that database, once it was opened
    automation::Object HistoryDatabase; // the one that the call history is in
    automation::Object LogDatabase;     // the one that the log document is in
    automation::Object LogDocument;     // the document that log lines are added to
    std::wstring LotusLogText;          // the last line about an initialisation

    std::shared_ptr<OpenBooks> openBooks; // of the event or walk under way, if there is one
};

// The session object. Throws AutomationError when there is none. Callers hold
// it while they use it: the session may be dropped meanwhile.
automation::Object notesSession(const LotusSession& session);

// A database by its locator; also one that cannot be opened, which fails at
// its first use. Throws AutomationError.
automation::Object notesDatabase(const LotusSession& session, const LotusBaseRef& base);

// A new front-end object of the Notes client. Throws AutomationError.
automation::Object notesWorkspace();

}

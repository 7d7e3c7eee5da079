// Everything that the program keeps about Microsoft Outlook between calls, under
// its given names. One record exists, owned by the form; the procedures of
// this room take it as their first argument.
#pragma once

#include "automation/object.h"
#include "common/groupware_state.h"
#include "common/host.h"
#include "outlook/table_answer.h"

#include <cstdint>
#include <string>

namespace hublink {

class Dictionary;

// Outlook fixes the dispatch identifiers of each class of item, so a member's
// name is looked up once a class and not once an item. Another Outlook, as after
// an update, may have other identifiers: what was looked up belongs to the one
// that answered.
struct OutlookIdCaches {
    automation::SharedIdCache items = automation::makeIdCache();
    automation::SharedIdCache contact = automation::makeIdCache();
    automation::SharedIdCache journalItem = automation::makeIdCache();
    automation::SharedIdCache mail = automation::makeIdCache();
    automation::SharedIdCache recipients = automation::makeIdCache();
    automation::SharedIdCache table = automation::makeIdCache();
    automation::SharedIdCache columns = automation::makeIdCache();
};

// The section "outlook" of the ini file.
struct OutlookConfiguration {
    std::wstring szCallBackMailSyntaxe; // template of the callback mail
    bool bReplacePhoneNumber = false;   // rewrite a found number in its stripped form
    bool bQuitOutlook = false;          // quit Outlook when the program stops
    std::int32_t nLanguage = 0;         // of the dictionary; 0 is the user's own
    std::wstring szDllExtensionName;    // Exchange client extension: value name
    std::wstring szRegisteDllExtension; // and value

    bool operator==(const OutlookConfiguration&) const = default;
};

struct OutlookSession : OutlookConfiguration {
    OutlookSession(Host& host, GroupwareState& groupware, Dictionary& dictionary)
        : host(host), groupware(groupware), dictionary(dictionary)
    {}

    Host& host;
    GroupwareState& groupware;
    Dictionary& dictionary;
    OutlookIdCaches idCaches;             // of the Outlook that OutlookApp belongs to

    automation::Object OutlookApp;        // empty until created and after a failed initialisation
    automation::Object OutlookNameSpace;
    automation::Object OutlookContacts;
    automation::Object OutlookInbox;      // this and the next are opened, but read by nobody
    automation::Object OutlookJournal;
    bool bOutlookInit = false;            // the session is fully open; callers test it first
    bool tablesAreGuarded = false;        // Outlook asked about a table, or refused it, since it was opened
    TableAnswerCache answerCache;         // of the contacts' table, while an event is handled

    automation::Object OutlookLogItem;    // made with the first log line, kept to the end
    std::wstring szLastLogText;           // the last line about a new contact
};

// The items of the contacts folder. Throws AutomationError.
automation::Object contactItems(const OutlookSession& session);

enum class OutlookItemType : std::int16_t { mail = 0, journal = 4 };
enum class OutlookFolder : std::int16_t { inbox = 6, contacts = 10, journal = 11 };

// A new item, not saved yet. Throws AutomationError.
automation::Object newOutlookItem(const OutlookSession& session, OutlookItemType type);

// Saves an item without asking the user, and closes its window if there is one. Throws
// AutomationError.
void saveAndClose(const automation::Object& item);

}

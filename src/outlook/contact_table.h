// Asks Outlook in bulk who may have a telephone number. A walk over the contacts
// costs 14 calls for each of them; where Outlook offers tables (2007 and later), a
// few dozen calls show whether a walk would find anybody, and often whom.
#pragma once

#include "outlook/outlook_session.h"

#include <string>

namespace hublink {

// Who may have the number `sought`, by the table. No error leaves it.
// nobody: every telephone field of every contact was read, and none, stripped, is it.
// oneContact: a single row may have it, and the folder holds nothing but contacts (a
// walk would end at any other item).
// undecided: several rows may have it, or the table does not decide it: an older Outlook, a
// refused column, an unreadable value, rows that came or went meanwhile, any error.
//
// A table cuts long texts: a cut one may be the number when, stripped, it is the
// number's beginning.
//
// Where Outlook guards its tables, its user is asked about each column, or the
// column is refused. After the first question or refusal the tables are left
// alone until the session is opened again: a walk asks nothing.
TableAnswer findPossibleOwner(OutlookSession& session, const std::wstring& sought);

// Whether the table has as many rows as when it gave the answer: to be asked when
// the answer is used. False too on any error. No error leaves it.
bool isStillValid(const TableAnswer& answer);

// While one lives, an answer about a number is used again, for at most two seconds;
// only the table's count of rows is asked anew. An event needs each party twice, for
// the names and for the window, and a message box may hold it up in between.
class TableAnswerCacheScope {
public:
    explicit TableAnswerCacheScope(OutlookSession& session);
    ~TableAnswerCacheScope();
    TableAnswerCacheScope(const TableAnswerCacheScope&) = delete;
    TableAnswerCacheScope& operator=(const TableAnswerCacheScope&) = delete;

private:
    OutlookSession& session_;
};

}

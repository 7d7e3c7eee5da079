// Asks Outlook in bulk who may have a telephone number. A walk over the contacts
// costs 14 calls for each of them; where Outlook offers tables (2007 and later), a
// few dozen calls tell whether it is worth its while, and often which contact it
// would find.
#pragma once

#include "outlook/outlook_session.h"

#include <string>

namespace hublink {

// Nobody: every telephone field of every contact was read, and none, stripped,
// equals `sought`. One contact: a single row may have the number, and no other kind
// of item, at which a walk would end, lies among the contacts. Untold: more than one
// may have it, or the table cannot tell: an older Outlook, a refused column, a value
// that cannot be read, rows that came or went meanwhile, any error. No error leaves it.
//
// A table cuts long texts: such a one may be the number when what is left of it is a
// beginning of it.
//
// Where Outlook guards its tables, its user is asked about each column, or the
// column is refused. After the first question or refusal the tables are left
// alone until the session is opened again: a walk asks nothing.
TableAnswer whoMayHave(OutlookSession& session, const std::wstring& sought);

// Whether the table has as many rows as when it gave the answer: to be asked when
// the answer is used. False too when it cannot tell. No error leaves it.
bool stillHolds(const TableAnswer& answer);

// While one lives, what a table told about a number is not asked again but for its
// count of rows, for at most two seconds: an event asks for each party twice, for
// its names and for its window. A message box may hold the event up in between.
class AnswersOfOneEvent {
public:
    explicit AnswersOfOneEvent(OutlookSession& session);
    ~AnswersOfOneEvent();
    AnswersOfOneEvent(const AnswersOfOneEvent&) = delete;
    AnswersOfOneEvent& operator=(const AnswersOfOneEvent&) = delete;

private:
    OutlookSession& session_;
};

}

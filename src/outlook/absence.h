// Proves in bulk that no contact has a telephone number. A walk over the
// contacts costs 14 calls for each of them, and runs to its end for every
// number that nobody has; where Outlook offers tables (2007 and later), a few
// dozen calls tell the same.
#pragma once

#include "outlook/outlook_session.h"

#include <string>

// True only when every telephone field of every contact was read and none,
// stripped, equals `sought`. False when one does, and also when the tables
// cannot tell: an older Outlook, a refused column, a text long enough to have
// been cut, a contact that came meanwhile, any error. No error leaves it.
//
// Where Outlook guards its tables, its user is asked about each column, or the
// column is refused. After the first question or refusal the tables are left
// alone until the session is opened again: a walk asks nothing.
bool absenceIsProved(OutlookSession& session, const std::wstring& sought);

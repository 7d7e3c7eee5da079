// The journal item that collects the program's own log lines in Outlook.
#pragma once

#include "outlook/outlook_session.h"

#include <string>

namespace hublink {

// Appends one line with the date and time to the item "Connector Log", which
// the first line creates. No error leaves it: a failure loses the line.
void LogToOutlookJournal(OutlookSession& session, const std::wstring& text);

}

// Opens and ends the Outlook session: application, MAPI namespace, default folders.
#pragma once

#include "outlook/outlook_session.h"

namespace hublink {

// Does nothing while the session is open; success shows in `bOutlookInit`. May
// be called at any time; starts Outlook when it does not run. No error leaves it.
void InitOutlook(OutlookSession& session);

// The same, also while the session is open: its settings may have changed.
void reopenOutlook(OutlookSession& session);

// Outlook was closed: an open session lets it go and waits for its next opening.
void handleOutlookExit(OutlookSession& session);

// Ends an open session because the program stops, and Outlook with it where the
// settings say so. Throws AutomationError when Outlook does not take that.
void quitOutlook(OutlookSession& session);

}

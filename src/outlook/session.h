// Opens the Outlook session: application, MAPI namespace, default folders.
#pragma once

#include "outlook/outlook_session.h"

// Does nothing while the session is open; success shows in `bOutlookInit`. May
// be called at any time; starts Outlook when it does not run. No error leaves it.
void InitOutlook(OutlookSession& session);

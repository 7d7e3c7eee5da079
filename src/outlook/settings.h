// The section "outlook" of the ini file.
#pragma once

#include "outlook/outlook_session.h"

namespace hublink {

// Reads the settings and, while "Extension" is "true", registers the Exchange
// client extension. True when callback template and extension are as before;
// False when one changed, which also ends the session (`bOutlookInit`). An
// error ends the reading with what was read; the result is then False.
bool ReadOutlookIni(OutlookSession& session);

}

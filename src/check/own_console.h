// A console window that Windows has opened for this program alone, as for a double click: it closes with it.
#pragma once

#include "check/texts.h"

namespace hublink::check {

// Waits for a key, so that the report can be read, where the window would close at once. Nobody is waited for
// where the output goes elsewhere, where others use the console too, or where nobody can see it.
void keepOwnConsoleOpen(const ReportTexts& texts);

}

// Every key of the ini file as the program reads it, and what it makes of it.
#pragma once

#include "check/finding.h"
#include "check/program_settings.h"
#include "check/texts.h"

namespace hublink::check {

// `settings` as read from the file that they name. What the program does not reach,
// because an error ends its reading or a groupware is not in use, is left out and said
// so in one line.
Findings valueFindings(const ProgramSettings& settings, const IniTexts& texts);

}

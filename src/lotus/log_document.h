// The Notes document that collects the program's own log lines.
#pragma once

#include "lotus/lotus_session.h"

#include <string>

namespace hublink {

// Appends one line with the date and time to the log document; opens a new one
// when there is none or a new one was asked for. Does nothing while the
// session waits for its initialisation. No error leaves it: a failure loses
// the line.
void WriteLotusLog(LotusSession& session, const std::wstring& text);

}

// Opens the Lotus Notes session: session object, the user's mail file, the
// connector's databases, the log document, the settings.
#pragma once

#include "lotus/lotus_session.h"

// Does nothing unless `LotusMustInit`; success shows in `LotusReady`. May be
// called at any time; starts Notes when it does not run. `NewLog` asks for a
// new log document. No error leaves it.
void InitLotus(LotusSession& session, bool NewLog);

// Opens and ends the Lotus Notes session: session object, the user's mail file, the
// connector's databases, the log document, the settings.
#pragma once

#include "lotus/lotus_session.h"

namespace hublink {

// Whether the log begins a new document.
enum class NewLog { no, yes };

// Does nothing unless `LotusMustInit`; success shows in `LotusReady`. May be
// called at any time; starts Notes when it does not run. No error leaves it.
void InitLotus(LotusSession& session, NewLog newLog);

// The next `InitLotus` has something to do, whatever is open.
void requireLotusInitialisation(LotusSession& session);

// Opens the session anew, with the log document that it has: its settings may have
// changed. No error leaves it.
void reopenLotus(LotusSession& session);

// Notes was closed: an open session lets its object go and waits for its next
// initialisation. `LotusReady` stays: Notes was in use and is to be followed.
void handleNotesExit(LotusSession& session);

}

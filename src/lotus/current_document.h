// Keeps the document that the user reads in Notes ready to be called back
// from: a mail gets its sender's telephone number, a call of the history an
// up-to-date link to the caller's document.
#pragma once

#include "common/party.h"
#include "lotus/lotus_session.h"

namespace hublink {

// Works on the document in front; the number that it offers now, "" for none.
// The names are those of a mail's sender, where it was looked up. No error leaves it.
Party UpdateCurrentDocumentNumber(LotusSession& session);

}

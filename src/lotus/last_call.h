// Publishes whose call was the last one, where agents in Notes read it.
#pragma once

#include "common/party.h"
#include "lotus/lotus_session.h"

namespace hublink {

// Replaces the names by those of the person with the number, if there is one, and
// publishes this person's document in the Notes environment. Does nothing while Notes
// is not ready. Throws AutomationError; names that were found stay then.
void publishLastCall(LotusSession& session, Party& party);

}

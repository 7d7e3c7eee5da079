// The Notes mail that asks a colleague to call somebody back: opened on the
// screen, for the user to complete and send.
#pragma once

#include "common/party.h"
#include "lotus/lotus_session.h"

namespace hublink {

// Composes a "Phone Message" to the person with the called number. False when
// nobody has that number, or has neither mail address nor full name, and on
// any error. No error leaves it.
bool SendPhoneMessage(LotusSession& session, const Party& caller, const Party& called);

}

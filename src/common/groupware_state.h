// What both groupware adapters share.
#pragma once

#include <cstdint>
#include <string>

namespace hublink {

class Host;

struct GroupwareState {
    // Failed groupware initialisations since the start, both adapters counted
    // together. The form sets it to 0 at its start, nobody later.
    std::int16_t nbInitFailure = 0;

    // The softphone user's two name texts, joined by a blank.
    std::wstring PavexUserName;
};

// Counts one more failure, and asks for a stop when the count equals the limit.
// Throws AutomationError (overflow) past 32767, with the count unchanged.
void countInitFailure(GroupwareState& state, Host& host);

}

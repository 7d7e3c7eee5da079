#include "shell/call_readiness.h"

#include "automation/outgoing_call.h"

#include <windows.h>

namespace hublink {

// RPC_E_CANTCALLOUT_ININPUTSYNCCALL (vendor's knowledge base, Q131056). While another
// call is out COM goes by InSendMessage(), which need not distinguish a sender that has
// its answer from one that waits (vendor's help, "InSendMessageEx"; seen in Wine). A sender
// that does not wait at all counts too: the notification area is one, and a question
// that opened inside its message would leave COM in doubt until it is answered.
bool comRefusesCalls() noexcept
{
    if (automation::OutgoingCall::inProgress()) return InSendMessage();
    const DWORD how = InSendMessageEx(nullptr);
    return how != ISMEX_NOSEND && !(how & ISMEX_REPLIED);
}

bool callsMayGoOut() noexcept
{
    return !automation::OutgoingCall::inProgress() && !comRefusesCalls();
}

}

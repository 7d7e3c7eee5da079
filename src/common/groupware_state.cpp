#include "common/groupware_state.h"

#include "automation/error.h"
#include "common/configuration.h"
#include "common/host.h"

#include <limits>

namespace hublink {

void countInitFailure(GroupwareState& state, Host& host)
{
    if (state.nbInitFailure == std::numeric_limits<std::int16_t>::max())
        throw automation::AutomationError(L"nbInitFailure", DISP_E_OVERFLOW);
    ++state.nbInitFailure;
    // A counter that counts up from 0 against a Boolean that is -1 or 0: the
    // limit is never met, and repeated failures do not stop the program.
    if (state.nbInitFailure == host.configuration().gnb_echec) host.StopConnector();
}

}

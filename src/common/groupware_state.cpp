#include "common/groupware_state.h"

#include "automation/error.h"

#include <limits>

void countInitFailure(GroupwareState& state)
{
    if (state.nbInitFailure == std::numeric_limits<std::int16_t>::max())
        throw automation::AutomationError(L"nbInitFailure", DISP_E_OVERFLOW);
    ++state.nbInitFailure;
}

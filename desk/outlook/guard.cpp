#include "desk/outlook/guard.h"

#include "desk/outlook/errors.h"

namespace desk::outlook {

void Guard::ask()
{
    const GuardSetting& guard = setup_.guard;
    if (guard.answer == GuardSetting::Answer::off) return;
    ++questions_;
    if (guard.delay != 0) {
        Fault hang;
        hang.action = Fault::Action::hang;
        hang.milliseconds = guard.delay;
        recorder_.apply(hang, false);
    }
    if (guard.answer == GuardSetting::Answer::deny) raise(guard.refusal, L"Operation aborted");
}

}

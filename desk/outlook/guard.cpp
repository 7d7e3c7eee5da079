#include "desk/outlook/guard.h"

#include "desk/outlook/errors.h"

namespace desk::outlook {

void Guard::ask()
{
    const GuardSetting& guard = setup_.guard;
    if (guard.answer == GuardSetting::Answer::off) return;
    ++questions_;
    if (guard.delay != 0) recorder_.happen({.action = Fault::Action::hang, .milliseconds = guard.delay}, false);
    if (guard.answer == GuardSetting::Answer::deny) raise(guard.refusal, L"Operation aborted");
}

}

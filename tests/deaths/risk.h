// What may happen by design when something goes wrong at one call of a partner.
// It is told from the calls of an undisturbed synchronisation alone.
#pragma once

#include <set>
#include <string>

namespace deaths {

struct Risk {
    // Part of the look through all contacts: many calls alike.
    bool inWalk = false;

    // Whether this call comes, and when, depends on how fast the machine is: nothing
    // is tried at it.
    bool isUnsteady = false;

    // The softphone's call whose record is saved in the groupware and not in the
    // map yet, before and after this call is carried out; "" for none. Whoever
    // dies then, the call is copied again.
    std::wstring openBefore;
    std::wstring openAfter;

    // The softphone's call that is being copied: its map record was asked for and
    // is still to be inserted.
    std::wstring beingCopied;

    // The number that is being looked for: when this call fails, its contact counts
    // as unknown and is made again.
    std::wstring lookedFor;

    // The number of a caller whose contact is being made for the call: when this
    // call fails, the call is copied all the same, and its caller has no contact.
    std::wstring contactMadeFor;

    // The softphone's call whose map record counts as that of a deleted one when
    // this call fails and the softphone answers on; "" for none.
    std::wstring unmappedByFailure;

    // The lines that a failure of this call leaves in the log in place of the usual
    // end of a synchronisation.
    std::set<std::wstring> failureLines;
};

}

// What a script's work over many contacts takes, without running it for hours.
#pragma once

#include "desk/bench/run.h"

namespace desk::bench {

// From one run over few contacts and one over more: what is done for each contact
// is always the same.
class ReckonedWork {
public:
    ReckonedWork(int fewContacts, const Run& few, int moreContacts, const Run& more);

    double callsOver(int contacts) const { return calls_ + callsEach_ * (contacts - fewContacts_); }
    double millisecondsOver(int contacts) const
    {
        return milliseconds_ + millisecondsEach_ * (contacts - fewContacts_);
    }

private:
    int fewContacts_;
    double calls_;
    double milliseconds_;
    double callsEach_; // for each contact
    double millisecondsEach_;
};

}

#include "desk/bench/reckoned.h"

namespace desk::bench {

ReckonedWork::ReckonedWork(int fewContacts, const Run& few, int moreContacts, const Run& more)
    : fewContacts_(fewContacts), calls_(few.counts.total()), milliseconds_(few.milliseconds),
      callsEach_((more.counts.total() - calls_) / (moreContacts - fewContacts)),
      millisecondsEach_((more.milliseconds - few.milliseconds) / (moreContacts - fewContacts))
{}

}

// Outlook's guard: who touches a protected member waits until the user has
// answered a question, or is refused. Protected are the reading of mail addresses
// and of bodies, recipients altogether, the columns of a table, sending (vendor's
// list "Protected Properties and Methods"). What a client writes is not.
#pragma once

#include "desk/common/recorder.h"
#include "desk/outlook/setup.h"

namespace desk::outlook {

class Guard {
public:
    Guard(Recorder& recorder, const Setup& setup) noexcept : recorder_(recorder), setup_(setup) {}

    // Before a protected member is read or called. Raises the refusal.
    void ask();

    // How often the user was asked.
    unsigned long questions() const noexcept { return questions_; }

private:
    Recorder& recorder_;
    const Setup& setup_;
    unsigned long questions_ = 0;
};

}

// Follows the user's work in Notes: the document in front is kept up to date.
#pragma once

#include <windows.h>

namespace hublink {

struct LotusSession;

class DocumentWatch {
public:
    explicit DocumentWatch(LotusSession& session) : session_(session) {}
    DocumentWatch(const DocumentWatch&) = delete;
    DocumentWatch& operator=(const DocumentWatch&) = delete;

    // One tick of the timer: does nothing while another program is in front.
    void TimerCallInlotus_Timer();

private:
    LotusSession& session_;
    DWORD notesProcessId_ = 0; // found once and kept, also when Notes restarts
};

}

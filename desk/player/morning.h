// A scripted morning at the desk, and what must have come of it.
#pragma once

#include "desk/player/desk.h"
#include "desk/player/narrator.h"

namespace desk::player {

class Morning {
public:
    // `picture` is the BMP file to leave, "" for none.
    Morning(Desk& desk, Narrator& narrator, std::wstring picture = {});

    // The whole morning, from starting the programs to the end of Hublink.
    void play();

private:
    void start();
    void synchronised();
    void callFromNumberWithDots();
    void callFromStranger();
    void forwardedCall();
    void outgoingCall();
    void editedIniFile();
    void logItem();
    void outlookRestarted();
    void iconPressed();

    void ring(const std::wstring& fields);
    void countCalls();
    bool eachOnce();

    Desk& desk_;
    Narrator& narrator_;
    const std::wstring picture_;
    std::size_t contacts_ = 0; // that came into Outlook in other ways than from the address book
};

}

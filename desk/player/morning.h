// A scripted morning at the desk, and what must have come of it.
#pragma once

#include "desk/player/desk.h"
#include "desk/player/narrator.h"
#include "desk/player/side.h"
#include "desk/player/timeouts.h"

#include <memory>
#include <vector>

namespace desk::player {

struct GroupwareInUse {
    bool outlook = true;
    bool notes = true;
};

class Morning {
public:
    // `pictures` is the folder for the BMP files to leave, "" for none.
    Morning(Desk& desk, Narrator& narrator, GroupwareInUse groupware, std::wstring pictures = {});

    // The whole morning, from starting the programs to the end of Hublink.
    void play();

private:
    void start();
    void checkSynchronisation();
    void playCallFromKnownNumber();
    void playCallFromStranger();
    void playForwardedCall();
    void playOutgoingCall();
    void playEditedIniFile();
    void playGroupwareRestart(Side& side);
    void playIconPress();

    void ring(const std::wstring& fields);
    void countCalls();
    void takePicture(const wchar_t* name);
    bool eachLogHas(const std::wstring& line, DWORD timeout = eventTimeout);

    Desk& desk_;
    Narrator& narrator_;
    const std::wstring pictures_;
    std::vector<std::unique_ptr<Side>> sides_;
};

}

// A scripted morning at the desk, and what must have come of it.
#pragma once

#include "desk/player/desk.h"
#include "desk/player/narrator.h"
#include "desk/player/patience.h"
#include "desk/player/side.h"

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
    void synchronised();
    void callFromKnownNumber();
    void callFromStranger();
    void forwardedCall();
    void outgoingCall();
    void editedIniFile();
    void groupwareRestarted(Side& side);
    void iconPressed();

    void ring(const std::wstring& fields);
    void countCalls();
    void takePicture(const wchar_t* name);
    bool eachLogHas(const std::wstring& line, DWORD patience = soon);

    Desk& desk_;
    Narrator& narrator_;
    const std::wstring pictures_;
    std::vector<std::unique_ptr<Side>> sides_;
};

}

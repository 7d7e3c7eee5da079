// A scripted morning at the desk, and what must have come of it.
#pragma once

#include "desk/common/store_file.h"
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
    bool windowOpens(const std::wstring& title);
    bool logHolds(const std::wstring& line);
    std::wstring logBody();
    const StoreRecord* find(const std::vector<StoreRecord>& records, const wchar_t* field, const wchar_t* value);

    Desk& desk_;
    Narrator& narrator_;
    const std::wstring picture_;
};

}

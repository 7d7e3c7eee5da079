// The program's configuration, under its given names. It is filled from the
// registry and the ini file, re-read in place while the program runs, and read
// by every room at the moment of use.
#pragma once

#include <cstdint>
#include <string>

namespace hublink {

struct Configuration {
    std::wstring szServer;            // address of the softphone's server component
    std::wstring szUserName;          // softphone user name
    std::wstring szPathPavex;         // softphone installation folder
    std::wstring szPathLogFile;       // of a log file: set at the start, read by nobody
    std::wstring szFileInit;          // never set, read by nobody
    std::wstring szFileConnectorIni;  // full path of the ini file
    bool bgWithLotus = false;         // Lotus Notes is a groupware in use
    bool bgWithOutlook = false;       // Outlook is a groupware in use
    bool bgWithPopUp = false;         // show the caller's contact on an incoming call
    bool bgSetNewContact = false;     // create a contact for an unknown caller
    bool bgWithHisto = false;         // synchronise the call history
    bool bgWithRepertory = false;     // synchronise the softphone's address book
    bool bgWithCallBackMail = false;  // prepare a callback message for a forwarded call
    bool gStop = false;               // a stop has been asked for
    std::int32_t tempo = 0;           // pause after each groupware record written, milliseconds
    std::int32_t tempo1 = 0;          // pause after each softphone record examined, milliseconds
    bool Trace = false;               // show every log line in a message box
    std::int16_t gnb_echec = 0;       // "TryCnxNumber" reduced to a 16-bit Boolean: -1 or 0

    bool operator==(const Configuration&) const = default;
};

}

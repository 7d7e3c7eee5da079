// Everything that the program keeps about the softphone between calls, under its
// given names. One record exists, owned by the form; the procedures of this room
// take it as their first argument, and through it reach the two groupwares.
#pragma once

#include "automation/object.h"
#include "common/groupware_state.h"
#include "common/host.h"
#include "lotus/lotus_session.h"
#include "outlook/outlook_session.h"

#include <string>

namespace hublink {

// The softphone's records are of one class each: members are looked up once.
struct SoftphoneIdCaches {
    const automation::SharedIdCache call = automation::makeIdCache();
    const automation::SharedIdCache entry = automation::makeIdCache();
    const automation::SharedIdCache historyItem = automation::makeIdCache();
};

struct SoftphoneSession {
    SoftphoneSession(Host& host, GroupwareState& groupware, OutlookSession& outlook, LotusSession& lotus)
        : host(host), groupware(groupware), outlook(outlook), lotus(lotus)
    {}

    Host& host;
    GroupwareState& groupware;
    OutlookSession& outlook;
    LotusSession& lotus;
    const SoftphoneIdCaches idCaches;

    automation::Object UserObj;
    bool bInitConnector = false;          // InitConnector is running; read by nobody
    std::wstring gPhoneNumberCalled;      // other party of the last new call
    std::wstring gLastNameCalled;
    std::wstring gFirstNameCalled;
    std::wstring gDestinationLastName;    // to whom an incoming call was forwarded
    std::wstring gDestinationFirstName;
    std::wstring gDestinationNumber;
    automation::Object hashID;            // the identifier-map server
    automation::Object PavexObj;
    automation::Object LineObj;
    automation::Object histo;
    automation::Object adressbookPavex;

    int repertoryWalkCount = 0; // how often a synchronisation has asked for the count of entries
    int historyWalkCount = 0;   // and of history items
};

}

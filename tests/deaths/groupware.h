// A groupware that mirrors the softphone's records, as the sweep sees it: the
// partner that plays it, what it has at the start, how its records are read back.
#pragma once

#include "partner_call.h"
#include "risk.h"

#include "desk/player/desk.h"

#include <cstdint>
#include <string>
#include <vector>

namespace deaths {

// A groupware record that mirrors one of the softphone.
struct Mirror {
    std::wstring id;
    std::wstring key;     // of a contact its number without separators, of a call its begin
    std::wstring content; // everything but the identifier
};

struct MapRecord {
    std::wstring softphoneId;
    std::wstring groupwareId;
    std::int32_t application;
    std::int32_t collection; // 1 entries, 0 calls
};

class Groupware {
public:
    virtual ~Groupware() = default;

    virtual const char* iniName() const = 0;           // in the ini file's "type"
    virtual std::string iniSections() const { return ""; } // of its own, besides
    virtual const wchar_t* partner() const = 0;        // of its control pipe
    virtual std::int32_t mapApplication() const = 0;
    virtual desk::player::Process& process(desk::player::Desk& desk) const = 0;
    virtual void reopen(desk::player::Desk& desk) const = 0; // with what it had

    // Whether a call's record brings a contact for an unknown caller with it.
    virtual bool makesContactsOfCallers() const { return true; }

    // Whether the supervision initialises it again whatever it died in.
    virtual bool comesBackByItself() const { return true; }

    // The three contacts and the calls that are mirrored from the start, as its
    // store's text; and their records in the map.
    virtual std::wstring startingRecords() const = 0;
    virtual std::vector<MapRecord> startingMap() const = 0;

    virtual std::vector<Mirror> contacts() const = 0;
    virtual std::vector<Mirror> calls() const = 0;
    virtual std::vector<std::wstring> logLines() const = 0; // without date and time

    // The risk of each of the partner's calls.
    virtual std::vector<Risk> risks(const std::vector<PartnerCall>& calls) const = 0;
};

}

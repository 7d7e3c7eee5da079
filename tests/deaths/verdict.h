// Compares what the groupware and the map hold with what the softphone has.
#pragma once

#include "groupware.h"

#include <set>

namespace deaths {

// What the groupware and the map hold.
struct State {
    std::vector<Mirror> contacts;
    std::vector<Mirror> calls;
    std::vector<MapRecord> map;
    std::vector<std::wstring> log;
};

// What may be there twice, or not at all.
struct Permission {
    std::set<std::wstring> calls;   // identifiers of the softphone
    std::set<std::wstring> numbers; // of contacts
    std::wstring missing = {};      // the number of a contact
};

struct Verdict {
    int lost = 0;
    int missingAsAllowed = 0;
    int doubledAsAllowed = 0;
    int doubledForbidden = 0;
    std::vector<std::wstring> deviations; // a line for whatever is not permitted
    std::wstring brokenOff;               // why a first attempt broke off, "" when it did not

    bool isGood() const { return deviations.empty(); }
    Verdict& operator+=(const Verdict& other); // of another groupware after the same mishap
};

// Every entry and every call has one record in the groupware, a whole one, and
// one in the map that leads to it; strangers have one contact; nothing else is
// there. `whole` is the state after an undisturbed synchronisation: what is
// compared with it may be told by a call that was answered wrongly, and is then
// left out by passing null.
Verdict judge(const State& state, const Groupware& groupware, const Permission& permission, const State* whole);

}

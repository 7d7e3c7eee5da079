// One thing that goes wrong at one call.
#pragma once

#include <string>

namespace deaths {

enum class Mishap { hublinkDies, groupwareDies, softphoneDies, mapServerDies, busy, fails };

struct Trial {
    Mishap mishap = Mishap::hublinkDies;
    bool ofSoftphone = false; // the call is the softphone's, else the groupware's
    std::size_t call = 0;     // index among the partner's calls of an undisturbed run
    bool after = false;       // once the call has been carried out

    // "Hublink dies before"
    std::wstring text() const
    {
        static const wchar_t* const names[] = {L"Hublink dies",        L"the groupware dies", L"the softphone dies",
                                               L"the map server dies", L"busy",               L"failure"};
        const bool isDeath = mishap != Mishap::busy && mishap != Mishap::fails;
        return std::wstring(names[static_cast<int>(mishap)]) + (!isDeath ? L" at" : after ? L" after" : L" before");
    }
};

}

// One thing that goes wrong at one call.
#pragma once

#include <string>

namespace deaths {

enum class Mishap { hublinkDies, groupwareDies, softphoneDies, mapServerDies, busy, fails };

// The partners by their numbers: the softphone, and the groupware from 1 on.
using PartnerNumber = std::size_t;
inline constexpr PartnerNumber softphone = 0;

struct Trial {
    Mishap mishap = Mishap::hublinkDies;
    PartnerNumber partner = softphone; // whose call it is
    std::size_t call = 0;              // index among the partner's calls of an undisturbed run
    bool after = false;                // once the call has been carried out

    // "Hublink dies before"
    std::wstring text() const
    {
        static const wchar_t* const names[] = {
            L"Hublink dies", L"the groupware dies", L"the softphone dies", L"the map server dies", L"busy", L"failure"};
        const bool isDeath = mishap != Mishap::busy && mishap != Mishap::fails;
        return std::wstring(names[static_cast<int>(mishap)]) + (!isDeath ? L" at" : after ? L" after" : L" before");
    }
};

}

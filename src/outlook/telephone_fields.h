// The telephone fields of an Outlook contact, in the order in which they are
// filtered and compared.
#pragma once

#include <array>

namespace hublink {

inline constexpr std::array<const wchar_t*, 13> telephoneFields{
    L"BusinessTelephoneNumber",
    L"AssistantTelephoneNumber",
    L"CallbackTelephoneNumber",
    L"CompanyMainTelephoneNumber",
    L"ISDNNumber",
    L"RadioTelephoneNumber",
    L"Business2TelephoneNumber",
    L"CarTelephoneNumber",
    L"Home2TelephoneNumber",
    L"HomeTelephoneNumber",
    L"MobileTelephoneNumber",
    L"OtherTelephoneNumber",
    L"PrimaryTelephoneNumber",
};

}

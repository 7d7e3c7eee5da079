// What the softphone of the sweep knows: ten entries and fifteen calls, some of
// them mirrored already.
#pragma once

#include <string>
#include <vector>

namespace deaths {

struct Entry {
    std::wstring id;       // "1.3"
    std::wstring number;   // without separators; no other entry has it
    std::wstring written;  // as the softphone has it
    std::wstring lastName;
    std::wstring firstName;
};

struct Call {
    std::wstring id;     // "2.3"
    std::wstring begin;  // "2023-03-03 06:00:00", no other call began then
    std::wstring number; // as the softphone has it; may be empty
    std::wstring lastName;
    std::wstring firstName;
    bool isMirrored;     // has its record and its place in the map from the start
};

const std::vector<Entry>& entries();
const std::vector<Call>& calls();

// What the groupware has at the start, by number: two that are found by their
// number (the second is written with dots), and one that is mapped to an entry.
inline constexpr const wchar_t* knownNumber = L"010003";
inline constexpr const wchar_t* dottedNumber = L"010005";
inline constexpr const wchar_t* mappedNumber = L"010007";

// Numbers of callers that are in no address book: each becomes one contact.
inline constexpr const wchar_t* strangers[] = {L"020001", L"020002"};

// Identifiers of records that the softphone has no more, still in the map.
inline constexpr const wchar_t* goneEntry = L"1.99";
inline constexpr const wchar_t* goneCall = L"2.99";

// The text of the softphone's store.
std::string softphoneStore();

}

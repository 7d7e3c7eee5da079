// The softphone identifies an address-book entry or a history item by two
// 32-bit numbers. As text they are the key of the identifier map.
#pragma once

#include <cstdint>
#include <string>

namespace hublink {

struct SoftphoneId {
    std::int32_t IdHigh = 0;
    std::int32_t IdLow = 0;
};

// IdHigh in decimal, ".", IdLow in decimal.
std::wstring textFromSoftphoneId(SoftphoneId id);

// The first two parts of a text of one or two dots; 0 and 0 for a text of more.
// Throws AutomationError when there is no dot or a part is no 32-bit number.
SoftphoneId softphoneIdFromText(const std::wstring& text);

}

// Text, number and date conversions exactly as OLE Automation does them: with
// its ranges, its rounding, the user's locale, its failures.
#pragma once

#include <windows.h>
#include <oaidl.h>

#include <cstdint>
#include <string>

namespace automation {

// Whole number of a text, rounded to even at a half. Throws AutomationError:
// type mismatch for what is no number, overflow outside the range.
std::int16_t int16FromText(const std::wstring& text);
std::int32_t int32FromText(const std::wstring& text);

// Date and time in the user's formats; a midnight shows no time.
std::wstring textFromDate(DATE date);

// "True" or "False".
std::wstring textFromBoolean(bool value);

// The current local date and time.
DATE now();

}

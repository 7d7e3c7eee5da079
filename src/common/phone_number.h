// Telephone numbers are compared, searched and stored without separators.
#pragma once

#include <string>

namespace hublink {

// The number without any "." and " "; everything else (dashes, parentheses,
// plus signs, letters) stays.
std::wstring StripPhoneNumber(const std::wstring& number);

}

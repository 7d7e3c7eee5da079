// Whether a name was meant that somebody has misspelt.
#pragma once

#include <string>

namespace hublink::check {

// At most two letters differ, are missing or too many; case counts for nothing. Equal
// names are alike.
bool areAlike(const std::wstring& a, const std::wstring& b);

}

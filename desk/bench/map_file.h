// The identifier map's file, written as docs/identifier-map.md describes it:
// a map of any size without an insertion for each record.
#pragma once

#include <string>

namespace desk::bench {

// The bytes of a file with that many Outlook history items: 3.N is mapped to
// mappedTo(N), N from 0.
std::string mapFile(int records);

std::wstring mappedTo(int n);

}

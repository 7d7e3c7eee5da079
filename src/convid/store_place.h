// Where the current user's store is kept.
#pragma once

#include <string>

namespace convid {

// In the roaming application data, so that the map follows the user. Throws
// StoreError when the system names no such folder.
std::wstring storePath();

}

// Where the current user's store is kept.
#pragma once

#include <string>

namespace convid {

// What becomes of the user's application data folder where there is none.
enum class MissingFolder { isMade, staysMissing };

// In the roaming application data, so that the map follows the user. Throws
// StoreError when the system names no such folder.
std::wstring storePath(MissingFolder missing = MissingFolder::isMade);

}

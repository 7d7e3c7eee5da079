// The softphone's contents in the desk's text form: at most one [user], and
// [entry] and [history] records in their order.
#pragma once

#include "desk/common/store_file.h"
#include "desk/softphone/contents.h"

namespace desk::softphone {

// Throws std::runtime_error naming the line of a record that makes no sense.
Contents contentsOf(const std::vector<StoreRecord>& records);

std::vector<StoreRecord> recordsOf(const Contents& contents);

}

// Arrays that come out of automation calls.
#pragma once

#include "automation/value.h"

#include <vector>

namespace automation {

// All elements of an array of any number of dimensions, in memory order (the
// first index changes fastest). Throws AutomationError (type mismatch) when
// the value is no array, or one of records.
std::vector<Value> elementsOf(const Value& array);

}

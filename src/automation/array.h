// Arrays that come out of automation calls.
#pragma once

#include "automation/value.h"

#include <vector>

namespace automation {

// All elements of an array of any number of dimensions, in memory order (the
// first index changes fastest). The elements are of the type that the array
// itself states, else of the value's. Throws AutomationError
// (type mismatch) when the value is no array, one of records or of an unknown
// type, or when its elements have not the size of their type.
std::vector<Value> elementsOf(const Value& array);

// How many elements each dimension has, the first one first. Throws likewise.
std::vector<std::size_t> extentsOf(const Value& array);

}

// What "For Each" needs: an enumeration over a snapshot of values.
#pragma once

#include "automation/value.h"

#include <vector>

namespace automation::server {

// An IEnumVARIANT over `values`, to be returned by a member with DISPID_NEWENUM.
Value enumerationOf(std::vector<Value> values);

}

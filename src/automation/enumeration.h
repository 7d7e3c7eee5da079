// "For Each" over a collection object.
#pragma once

#include "automation/com_ptr.h"
#include "automation/object.h"

#include <oaidl.h>

namespace automation {

class Enumeration {
public:
    // Asks the collection for its enumerator. Throws AutomationError.
    explicit Enumeration(const Object& collection);

    // Fetches the next element; false at the end. Throws AutomationError.
    bool next(Value& element);

private:
    ComPtr<IEnumVARIANT> enumerator_;
};

}

// "For Each" over a collection object.
#pragma once

#include "automation/com_ptr.h"
#include "automation/object.h"

#include <oaidl.h>

#include <deque>

namespace automation {

class Enumeration {
public:
    // Asks the collection for its enumerator. Throws AutomationError.
    explicit Enumeration(const Object& collection);

    // The next element; false at the end. Elements are fetched in blocks, so
    // that a long collection does not cost a call for each. Throws AutomationError.
    bool next(Value& element);

private:
    void fetch();

    std::deque<Value> fetched_;
    bool atEnd_ = false;
    ComPtr<IEnumVARIANT> enumerator_;
};

}

// The softphone's type library, kept in the program's resources.
#pragma once

#include "automation/com_ptr.h"

#include <oaidl.h>

namespace desk::softphone {

class TypeLibrary {
public:
    // The description of a class or interface, read at the first use. Throws
    // AutomationError when the program carries no such description.
    automation::ComPtr<ITypeInfo> describe(REFGUID id);

private:
    automation::ComPtr<ITypeLib> library_;
};

}

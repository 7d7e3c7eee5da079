// The type library that the registry knows for a class.
#pragma once

#include "automation/com_ptr.h"

#include <oaidl.h>

namespace automation {

// Its latest version; empty when the class names no library, or it cannot be loaded.
ComPtr<ITypeLib> registeredTypeLibrary(const wchar_t* progId);

}

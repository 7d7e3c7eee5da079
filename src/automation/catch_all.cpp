#include "automation/catch_all.h"

#include "automation/error.h"
#include "automation/failure.h"

#include <exception>
#include <new>

namespace automation {

const char* textOfException() noexcept
try {
    throw;
} catch (const std::exception& error) {
    return error.what(); // lives as long as the caller's handler
} catch (...) {
    return "an exception of another kind";
}

HRESULT codeOfException() noexcept
try {
    throw;
} catch (const AutomationError& error) {
    return error.code();
} catch (const Exception& error) {
    return error.code;
} catch (const Failure& error) {
    return error.code;
} catch (const std::bad_alloc&) {
    return E_OUTOFMEMORY;
} catch (...) {
    return E_FAIL;
}

void reportExceptionToDebugger() noexcept
{
    OutputDebugStringA(textOfException());
    OutputDebugStringA("\n");
}

}

// With what code an operation fails.
#pragma once

#include "automation/error.h"

#include <functional>

// S_OK when it does not fail.
inline HRESULT codeOf(const std::function<void()>& operation)
{
    try {
        operation();
    } catch (const automation::AutomationError& error) {
        return error.code();
    }
    return S_OK;
}

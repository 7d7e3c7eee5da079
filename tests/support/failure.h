// What an operation fails with.
#pragma once

#include "automation/error.h"

#include <gtest/gtest.h>

#include <functional>

// An operation that does not fail fails the test.
inline automation::AutomationError failureOf(const std::function<void()>& operation)
{
    try {
        operation();
    } catch (const automation::AutomationError& error) {
        return error;
    }
    ADD_FAILURE() << "no error";
    return automation::AutomationError(L"", S_OK);
}

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

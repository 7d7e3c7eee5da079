// What a member of an offered object throws to make its client's call fail.
#pragma once

#include <windows.h>

#include <string>

namespace automation {

// Reaches the client as an automation exception (DISP_E_EXCEPTION) with this
// source and description.
struct Exception {
    HRESULT code;
    std::wstring source;
    std::wstring description;
};

// Reaches the client as this bare HRESULT.
struct Failure {
    HRESULT code;
    unsigned argument = 0; // zero-based from the left, used with a type mismatch
};

}

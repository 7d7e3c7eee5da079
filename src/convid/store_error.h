// The one exception of the store: why an operation on it failed, in words for
// the person who reads the client's log.
#pragma once

#include <windows.h>

#include <exception>
#include <string>

namespace convid {

class StoreError : public std::exception {
public:
    StoreError(HRESULT code, std::wstring description) : code_(code), description_(std::move(description)) {}

    HRESULT code() const noexcept { return code_; }
    const std::wstring& description() const noexcept { return description_; }
    const char* what() const noexcept override { return "identifier store"; }

private:
    HRESULT code_;
    std::wstring description_;
};

// `what` failed with a Windows error code; the system's own words are added.
StoreError systemError(const std::wstring& what, DWORD code);

}

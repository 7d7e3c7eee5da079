// The one exception of this layer: a failed automation call, with everything
// that COM reported about it.
#pragma once

#include <windows.h>

#include <exception>
#include <string>

namespace automation {

class AutomationError : public std::exception {
public:
    static constexpr unsigned noArgument = ~0u;

    AutomationError(std::wstring member, HRESULT code, std::wstring source = {}, std::wstring description = {},
                    unsigned argument = noArgument);

    // The member that was called, "" where the failure belongs to none.
    const std::wstring& member() const noexcept { return member_; }

    // The HRESULT of the call or, when the server raised an exception, its own code.
    HRESULT code() const noexcept { return code_; }

    const std::wstring& source() const noexcept { return source_; }
    const std::wstring& description() const noexcept { return description_; }

    // Zero-based index of the argument that the server refused, counted from
    // the left, or noArgument.
    unsigned argument() const noexcept { return argument_; }

    const char* what() const noexcept override { return what_.c_str(); }

private:
    std::wstring member_;
    HRESULT code_;
    std::wstring source_;
    std::wstring description_;
    unsigned argument_;
    std::string what_;
};

// The code by which automation clients know the use of an empty object
// reference ("Object variable not set", run-time error 91).
inline constexpr HRESULT objectNotSet = static_cast<HRESULT>(0x800A005BL);

// Throws AutomationError when `result` is a failure code.
void check(HRESULT result, const wchar_t* operation);

}

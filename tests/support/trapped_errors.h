// Collects what the error trap reports while this lives.
#pragma once

#include "common/error_trap.h"

#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace support {

// The bare name in a compiler's "int Class::name(int) const::<lambda()>", or in another
// one's "int (anonymous namespace)::Class::name(int)::(anonymous class)::operator()() const".
inline std::wstring bareName(std::string_view function)
{
    constexpr std::string_view unnamed = "(anonymous ";
    std::size_t arguments = function.find('(');
    while (arguments != std::string_view::npos && function.substr(arguments).starts_with(unnamed))
        arguments = function.find('(', arguments + unnamed.size());
    function = function.substr(0, arguments);
    function.remove_prefix(function.find_last_of(" :") + 1);
    return std::wstring(function.begin(), function.end());
}

class TrappedErrors {
public:
    TrappedErrors()
        : previous_(hublink::setDiagnosticHook([this](const std::source_location& place, const char* error) {
              procedures.push_back(bareName(place.function_name()));
              errors.emplace_back(error);
          }))
    {}
    ~TrappedErrors() { hublink::setDiagnosticHook(std::move(previous_)); }
    TrappedErrors(const TrappedErrors&) = delete;
    TrappedErrors& operator=(const TrappedErrors&) = delete;

    std::vector<std::wstring> procedures; // those that the errors have ended
    std::vector<std::string> errors;

private:
    hublink::DiagnosticHook previous_;
};

}

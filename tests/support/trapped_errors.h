// Collects what the error trap reports while this lives.
#pragma once

#include "common/error_trap.h"

#include <string>
#include <utility>
#include <vector>

namespace support {

class TrappedErrors {
public:
    TrappedErrors()
        : previous_(setDiagnosticHook([this](const wchar_t* procedure, const char* error) {
              procedures.emplace_back(procedure);
              errors.emplace_back(error);
          }))
    {
    }
    ~TrappedErrors() { setDiagnosticHook(std::move(previous_)); }
    TrappedErrors(const TrappedErrors&) = delete;
    TrappedErrors& operator=(const TrappedErrors&) = delete;

    std::vector<std::wstring> procedures;
    std::vector<std::string> errors;

private:
    DiagnosticHook previous_;
};

}

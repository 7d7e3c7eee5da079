// The arguments of one incoming call, from left to right.
#pragma once

#include "automation/object.h"
#include "automation/value.h"

#include <windows.h>
#include <oaidl.h>

#include <cstdint>
#include <initializer_list>
#include <string>

namespace automation::server {

class Arguments {
public:
    Arguments() noexcept = default;
    explicit Arguments(const DISPPARAMS& parameters) noexcept : parameters_(&parameters) {}

    std::size_t size() const noexcept { return parameters_ ? parameters_->cArgs : 0; }

    // The argument as it came, by-reference types included.
    const VARIANT& raw(std::size_t index) const;

    bool isGiven(std::size_t index) const; // there, and not an omitted optional one

    // Converted as automation does; a type mismatch names the argument.
    Value value(std::size_t index) const; // by-reference values followed
    std::wstring text(std::size_t index) const;
    std::int32_t int32(std::size_t index) const;
    bool isTrue(std::size_t index) const;
    DATE date(std::size_t index) const;
    Object object(std::size_t index) const;

    // Writes into arguments passed by reference (BSTR, 32-bit integer or VARIANT):
    // into all of them or, when one was not (a type mismatch) or memory is short,
    // into none.
    struct Output {
        std::size_t index;
        Value value;
    };
    void write(std::initializer_list<Output> outputs) const;

private:
    const VARIANT& argument(std::size_t index) const; // as it came, wrapped or not

    const DISPPARAMS* parameters_ = nullptr;
};

}

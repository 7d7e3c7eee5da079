#include "automation/server/arguments.h"

#include "automation/error.h"
#include "automation/failure.h"

#include <utility>
#include <vector>

namespace automation::server {

namespace {

// What goes into the argument, in the argument's own type; everything that may
// fail is over then.
Value newContent(const VARIANT& argument, const Arguments::Output& output)
{
    switch (V_VT(&argument)) {
    case VT_BYREF | VT_BSTR: return output.value.text();
    case VT_BYREF | VT_I4: return output.value.int32();
    case VT_BYREF | VT_VARIANT: return output.value;
    default: throw Failure{DISP_E_TYPEMISMATCH, static_cast<unsigned>(output.index)};
    }
}

void exchange(const VARIANT& argument, Value& content) noexcept
{
    VARIANT other = content.release();
    switch (V_VT(&argument)) {
    case VT_BYREF | VT_BSTR: std::swap(*V_BSTRREF(&argument), V_BSTR(&other)); break;
    case VT_BYREF | VT_I4: *V_I4REF(&argument) = V_I4(&other); break;
    default: std::swap(*V_VARIANTREF(&argument), other);
    }
    VariantClear(&other);
}

// What cannot be converted is told as a failure of that argument.
template <class Result>
Result converted(const Arguments& arguments, std::size_t index, Result (Value::*convert)() const)
try {
    return (arguments.value(index).*convert)();
} catch (const AutomationError& error) {
    throw Failure{error.code(), static_cast<unsigned>(index)};
}

}

const VARIANT& Arguments::argument(std::size_t index) const
{
    if (index >= size()) throw Failure{DISP_E_BADPARAMCOUNT};
    return parameters_->rgvarg[size() - 1 - index];
}

const VARIANT& Arguments::raw(std::size_t index) const
{
    const VARIANT& found = argument(index);
    // A client may wrap any argument in a VARIANT passed by reference.
    return V_VT(&found) == (VT_BYREF | VT_VARIANT) ? *V_VARIANTREF(&found) : found;
}

bool Arguments::isGiven(std::size_t index) const
{
    if (index >= size()) return false;
    const VARIANT& argument = raw(index);
    return !(V_VT(&argument) == VT_ERROR && V_ERROR(&argument) == DISP_E_PARAMNOTFOUND);
}

Value Arguments::value(std::size_t index) const
{
    return Value::copyOf(raw(index));
}

std::wstring Arguments::text(std::size_t index) const
{
    return converted(*this, index, &Value::text);
}

std::int32_t Arguments::int32(std::size_t index) const
{
    return converted(*this, index, &Value::int32);
}

bool Arguments::isTrue(std::size_t index) const
{
    return converted(*this, index, &Value::isTrue);
}

DATE Arguments::date(std::size_t index) const
{
    return converted(*this, index, &Value::asDate);
}

Object Arguments::object(std::size_t index) const
{
    return converted(*this, index, &Value::object);
}

void Arguments::write(std::initializer_list<Output> outputs) const
{
    std::vector<Value> contents;
    contents.reserve(outputs.size());
    for (const Output& output : outputs) contents.push_back(newContent(argument(output.index), output));
    std::size_t number = 0;
    for (const Output& output : outputs) exchange(argument(output.index), contents[number++]);
}

}

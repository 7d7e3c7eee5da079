#include "automation/value.h"

#include "automation/error.h"
#include "automation/object.h"
#include "automation/outgoing_call.h"

#include <new>

namespace automation {

namespace {

// The SDK of the supported systems declares read-only sources as writable.
VARIANT* source(const VARIANT& variant)
{
    return const_cast<VARIANT*>(&variant);
}

Value converted(const VARIANT& from, VARTYPE type, const wchar_t* operation)
{
    Value to;
    const OutgoingCall scope; // an object converts through its default property
    check(VariantChangeTypeEx(to.receive(), source(from), LOCALE_USER_DEFAULT, 0, type), operation);
    return to;
}

}

Value::Value(std::wstring_view text)
{
    V_VT(&variant_) = VT_BSTR;
    V_BSTR(&variant_) = SysAllocStringLen(text.data(), static_cast<UINT>(text.size()));
    if (!V_BSTR(&variant_)) throw std::bad_alloc();
}

Value::Value(std::int16_t number) noexcept
{
    V_VT(&variant_) = VT_I2;
    V_I2(&variant_) = number;
}

Value::Value(std::int32_t number) noexcept
{
    V_VT(&variant_) = VT_I4;
    V_I4(&variant_) = number;
}

Value::Value(bool value) noexcept
{
    V_VT(&variant_) = VT_BOOL;
    V_BOOL(&variant_) = value ? VARIANT_TRUE : VARIANT_FALSE;
}

Value::Value(const Object& object) noexcept
{
    V_VT(&variant_) = VT_DISPATCH;
    V_DISPATCH(&variant_) = object.dispatch();
    if (object) object.dispatch()->AddRef();
}

Value Value::date(DATE date) noexcept
{
    Value value;
    V_VT(&value.variant_) = VT_DATE;
    V_DATE(&value.variant_) = date;
    return value;
}

Value Value::copyOf(const VARIANT& variant)
{
    Value value;
    check(VariantCopyInd(&value.variant_, source(variant)), L"VariantCopyInd");
    return value;
}

Value::Value(const Value& other)
{
    VariantInit(&variant_);
    check(VariantCopy(&variant_, source(other.variant_)), L"VariantCopy");
}

bool Value::mayHoldObjects() const noexcept
{
    return type() == VT_DISPATCH || type() == VT_UNKNOWN || (type() & VT_ARRAY) != 0;
}

void Value::clear() noexcept
{
    if (mayHoldObjects()) {
        const OutgoingCall scope; // the last reference to an object of another process goes out
        VariantClear(&variant_);
    } else {
        VariantClear(&variant_);
    }
}

std::wstring Value::text() const
{
    // The usual case needs neither a conversion nor a second copy.
    const Value holder = type() == VT_BSTR ? Value() : converted(variant_, VT_BSTR, L"text");
    const BSTR text = V_BSTR(type() == VT_BSTR ? &variant_ : &holder.variant_);
    return std::wstring(text ? text : L"", SysStringLen(text));
}

std::int32_t Value::int32() const
{
    const Value number = converted(variant_, VT_I4, L"32-bit integer");
    return V_I4(&number.variant_);
}

std::int16_t Value::int16() const
{
    const Value number = converted(variant_, VT_I2, L"16-bit integer");
    return V_I2(&number.variant_);
}

bool Value::isTrue() const
{
    const Value truth = converted(variant_, VT_BOOL, L"Boolean");
    return V_BOOL(&truth.variant_) != VARIANT_FALSE;
}

double Value::number() const
{
    const Value number = converted(variant_, VT_R8, L"number");
    return V_R8(&number.variant_);
}

DATE Value::asDate() const
{
    const Value date = converted(variant_, VT_DATE, L"date");
    return V_DATE(&date.variant_);
}

Object Value::object() const
{
    switch (type()) {
    case VT_EMPTY: return Object();
    case VT_DISPATCH: return Object(V_DISPATCH(&variant_));
    case VT_UNKNOWN: return Object::query(V_UNKNOWN(&variant_));
    default: throw AutomationError(L"object", DISP_E_TYPEMISMATCH);
    }
}

Value byRef(Value& target)
{
    Value reference;
    V_VT(&reference.variant_) = static_cast<VARTYPE>(VT_BYREF | target.type());
    // All members of the union start at the same place, so this is the address
    // of whatever simple value the target holds.
    V_BYREF(&reference.variant_) = &V_I4(&target.variant_);
    return reference;
}

}

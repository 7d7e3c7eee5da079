// An owned VARIANT: what goes into and comes out of automation calls. The
// constructors fix the exact VARIANT type, because servers look at it.
#pragma once

#include <windows.h>
#include <oaidl.h>

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>

namespace automation {

class Object;

class Value {
public:
    Value() noexcept { VariantInit(&variant_); }
    Value(std::wstring_view text);                 // VT_BSTR, embedded NULs kept
    Value(const wchar_t* text) : Value(std::wstring_view(text)) {}
    Value(const std::wstring& text) : Value(std::wstring_view(text)) {}
    Value(std::int16_t number) noexcept;           // VT_I2
    Value(std::int32_t number) noexcept;           // VT_I4
    Value(long number) noexcept : Value(static_cast<std::int32_t>(number)) {}
    Value(bool value) noexcept;                    // VT_BOOL: 0 or -1
    Value(const Object& object) noexcept;          // VT_DISPATCH, empty for an empty object
    static Value date(DATE date) noexcept;         // VT_DATE: days since 30 December 1899
    static Value copyOf(const VARIANT& variant);   // a deep copy; by-reference values are followed

    Value(const Value& other);
    Value(Value&& other) noexcept : variant_(other.variant_) { VariantInit(&other.variant_); }
    Value& operator=(Value other) noexcept
    {
        std::swap(variant_, other.variant_);
        return *this;
    }
    ~Value() { clear(); }

    VARTYPE type() const noexcept { return V_VT(&variant_); }
    const VARIANT& variant() const noexcept { return variant_; }

    // Frees what is held and lends the empty VARIANT for a callee to fill.
    VARIANT* receive() noexcept
    {
        clear();
        return &variant_;
    }

    // Gives the VARIANT away; the value is empty afterwards.
    VARIANT release() noexcept
    {
        VARIANT given = variant_;
        VariantInit(&variant_);
        return given;
    }

    // Conversions of OLE Automation in the user's locale. All throw
    // AutomationError (type mismatch, overflow) when there is none.
    std::wstring text() const;
    std::int32_t int32() const;
    std::int16_t int16() const;
    bool isTrue() const; // as a Boolean
    double number() const;
    DATE asDate() const;

    // The object held; empty for an empty value and for Nothing. Throws
    // AutomationError (type mismatch) when something else is held.
    Object object() const;

    // An argument passed by reference: the callee writes into `target`, whose
    // type it cannot change, and which must outlive the call.
    friend Value byRef(Value& target);

private:
    bool mayHoldObjects() const noexcept;
    void clear() noexcept;

    VARIANT variant_;
};

Value byRef(Value& target);

}

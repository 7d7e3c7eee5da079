#include "automation/array.h"

#include "automation/error.h"

#include <oleauto.h>

namespace automation {

namespace {

std::size_t sizeOf(SAFEARRAY* array)
{
    std::size_t size = 1;
    for (UINT dimension = 1; dimension <= SafeArrayGetDim(array); ++dimension) {
        LONG lower = 0;
        LONG upper = -1;
        check(SafeArrayGetLBound(array, dimension, &lower), L"SafeArrayGetLBound");
        check(SafeArrayGetUBound(array, dimension, &upper), L"SafeArrayGetUBound");
        size *= static_cast<std::size_t>(upper - lower + 1);
    }
    return size;
}

// An array whose elements lie open as long as this lives.
class OpenArray {
public:
    explicit OpenArray(SAFEARRAY* array) : array_(array)
    {
        check(SafeArrayAccessData(array, &data_), L"SafeArrayAccessData");
    }
    ~OpenArray() { SafeArrayUnaccessData(array_); }
    OpenArray(const OpenArray&) = delete;
    OpenArray& operator=(const OpenArray&) = delete;

    const void* element(std::size_t index) const
    {
        return static_cast<const char*>(data_) + index * SafeArrayGetElemsize(array_);
    }

private:
    SAFEARRAY* array_;
    void* data_ = nullptr;
};

Value elementValue(const void* element, VARTYPE type)
{
    if (type == VT_VARIANT) return Value::copyOf(*static_cast<const VARIANT*>(element));
    // A reference to the element: all members of the union start at the same place.
    VARIANT reference;
    VariantInit(&reference);
    V_VT(&reference) = static_cast<VARTYPE>(VT_BYREF | type);
    V_BYREF(&reference) = const_cast<void*>(element);
    return Value::copyOf(reference);
}

}

std::vector<Value> elementsOf(const Value& array)
{
    std::vector<Value> values;
    const VARTYPE type = array.type() & VT_TYPEMASK;
    if (array.type() != (VT_ARRAY | type) || type == VT_RECORD)
        throw AutomationError(L"array", DISP_E_TYPEMISMATCH);
    SAFEARRAY* const elements = V_ARRAY(&array.variant());
    if (!elements) return values;
    const std::size_t size = sizeOf(elements);
    const OpenArray open(elements);
    values.reserve(size);
    for (std::size_t index = 0; index < size; ++index) values.push_back(elementValue(open.element(index), type));
    return values;
}

}

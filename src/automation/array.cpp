#include "automation/array.h"

#include "automation/error.h"

#include <oleauto.h>

namespace automation {

namespace {

std::vector<std::size_t> extents(SAFEARRAY* array)
{
    std::vector<std::size_t> sizes;
    for (UINT dimension = 1; dimension <= SafeArrayGetDim(array); ++dimension) {
        LONG lower = 0;
        LONG upper = -1;
        check(SafeArrayGetLBound(array, dimension, &lower), L"SafeArrayGetLBound");
        check(SafeArrayGetUBound(array, dimension, &upper), L"SafeArrayGetUBound");
        sizes.push_back(static_cast<std::size_t>(upper - lower + 1));
    }
    return sizes;
}

std::size_t sizeOf(SAFEARRAY* array)
{
    std::size_t size = 1;
    for (const std::size_t extent : extents(array)) size *= extent;
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

std::size_t sizeOfElement(VARTYPE type)
{
    switch (type) {
    case VT_I1:
    case VT_UI1: return 1;
    case VT_I2:
    case VT_UI2:
    case VT_BOOL: return 2;
    case VT_I4:
    case VT_UI4:
    case VT_INT:
    case VT_UINT:
    case VT_ERROR:
    case VT_R4: return 4;
    case VT_I8:
    case VT_UI8:
    case VT_R8:
    case VT_DATE:
    case VT_CY: return 8;
    case VT_BSTR:
    case VT_DISPATCH:
    case VT_UNKNOWN: return sizeof(void*);
    case VT_DECIMAL: return sizeof(DECIMAL);
    case VT_VARIANT: return sizeof(VARIANT);
    default: return 0;
    }
}

// By its features, which every array of texts, objects or variants has; then by
// the type that newer arrays keep. The value's word is the last.
VARTYPE typeOfElements(SAFEARRAY* array, VARTYPE claimed)
{
    if (array->fFeatures & FADF_RECORD) return VT_RECORD;
    if (array->fFeatures & FADF_BSTR) return VT_BSTR;
    if (array->fFeatures & FADF_VARIANT) return VT_VARIANT;
    if (array->fFeatures & FADF_DISPATCH) return VT_DISPATCH;
    if (array->fFeatures & FADF_UNKNOWN) return VT_UNKNOWN;
    VARTYPE stored = VT_EMPTY;
    return SUCCEEDED(SafeArrayGetVartype(array, &stored)) ? stored : claimed;
}

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

std::vector<std::size_t> extentsOf(const Value& array)
{
    if ((array.type() & ~VT_TYPEMASK) != VT_ARRAY) throw AutomationError(L"array", DISP_E_TYPEMISMATCH);
    SAFEARRAY* const elements = V_ARRAY(&array.variant());
    return elements ? extents(elements) : std::vector<std::size_t>();
}

std::vector<Value> elementsOf(const Value& array)
{
    std::vector<Value> values;
    const VARTYPE claimed = array.type() & VT_TYPEMASK;
    if (array.type() != (VT_ARRAY | claimed)) throw AutomationError(L"array", DISP_E_TYPEMISMATCH);
    SAFEARRAY* const elements = V_ARRAY(&array.variant());
    if (!elements) return values;
    const VARTYPE type = typeOfElements(elements, claimed);
    const std::size_t sizeOfType = sizeOfElement(type);
    if (sizeOfType == 0 || SafeArrayGetElemsize(elements) != sizeOfType)
        throw AutomationError(L"array", DISP_E_TYPEMISMATCH);
    const std::size_t size = sizeOf(elements);
    const OpenArray open(elements);
    values.reserve(size);
    for (std::size_t index = 0; index < size; ++index) values.push_back(elementValue(open.element(index), type));
    return values;
}

}

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

    template <class Element>
    const Element* elements() const { return static_cast<const Element*>(data_); }

private:
    SAFEARRAY* array_;
    void* data_ = nullptr;
};

Value textValue(BSTR text)
{
    return std::wstring_view(text ? text : L"", SysStringLen(text));
}

}

std::vector<Value> elementsOf(const Value& array)
{
    std::vector<Value> values;
    if (array.type() != (VT_ARRAY | VT_VARIANT) && array.type() != (VT_ARRAY | VT_BSTR))
        throw AutomationError(L"array", DISP_E_TYPEMISMATCH);
    SAFEARRAY* const elements = V_ARRAY(&array.variant());
    if (!elements) return values;
    const std::size_t size = sizeOf(elements);
    const OpenArray open(elements);
    values.reserve(size);
    for (std::size_t index = 0; index < size; ++index) {
        if (array.type() == (VT_ARRAY | VT_BSTR)) values.push_back(textValue(open.elements<BSTR>()[index]));
        else values.push_back(Value::copyOf(open.elements<VARIANT>()[index]));
    }
    return values;
}

}

#include "automation/server/collection.h"

#include "automation/catch_all.h"
#include "automation/unknown.h"

#include <algorithm>
#include <utility>

namespace automation::server {

namespace {

class Enumeration final : public Unknown<IEnumVARIANT> {
public:
    Enumeration(std::vector<Value> values, std::size_t position) : values_(std::move(values)), position_(position) {}

    STDMETHODIMP Next(ULONG count, VARIANT* values, ULONG* fetched) noexcept override
    {
        ULONG given = 0;
        while (given < count && position_ < values_.size()) {
            VariantInit(&values[given]);
            if (FAILED(VariantCopy(&values[given], const_cast<VARIANT*>(&values_[position_].variant())))) break;
            ++given;
            ++position_;
        }
        if (fetched) *fetched = given;
        return given == count ? S_OK : S_FALSE;
    }

    STDMETHODIMP Skip(ULONG count) noexcept override
    {
        const std::size_t left = values_.size() - position_;
        position_ += std::min<std::size_t>(count, left);
        return count <= left ? S_OK : S_FALSE;
    }

    STDMETHODIMP Reset() noexcept override
    {
        position_ = 0;
        return S_OK;
    }

    STDMETHODIMP Clone(IEnumVARIANT** copy) noexcept override
    {
        *copy = nullptr;
        return catchAll([&] {
            *copy = new Enumeration(values_, position_);
            return S_OK;
        });
    }

private:
    IUnknown* interfaceOf(REFIID iid) noexcept override { return iid == IID_IEnumVARIANT ? this : nullptr; }

    const std::vector<Value> values_;
    std::size_t position_;
};

}

Value enumerationOf(std::vector<Value> values)
{
    auto* const enumeration = new Enumeration(std::move(values), 0);
    Value result;
    VARIANT* variant = result.receive();
    V_VT(variant) = VT_UNKNOWN;
    V_UNKNOWN(variant) = enumeration;
    return result;
}

}

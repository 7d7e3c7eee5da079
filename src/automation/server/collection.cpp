#include "automation/server/collection.h"

#include "automation/error.h"

#include <algorithm>
#include <utility>

namespace automation::server {

namespace {

class Enumeration final : public IEnumVARIANT {
public:
    Enumeration(std::vector<Value> values, std::size_t position) : values_(std::move(values)), position_(position) {}

    STDMETHODIMP QueryInterface(REFIID iid, void** result) override
    {
        if (iid != IID_IUnknown && iid != IID_IEnumVARIANT) {
            *result = nullptr;
            return E_NOINTERFACE;
        }
        *result = static_cast<IEnumVARIANT*>(this);
        AddRef();
        return S_OK;
    }

    STDMETHODIMP_(ULONG) AddRef() override { return ++references_; }

    STDMETHODIMP_(ULONG) Release() override
    {
        const ULONG left = --references_;
        if (left == 0) delete this;
        return left;
    }

    STDMETHODIMP Next(ULONG count, VARIANT* values, ULONG* fetched) override
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

    STDMETHODIMP Skip(ULONG count) override
    {
        const std::size_t left = values_.size() - position_;
        position_ += std::min<std::size_t>(count, left);
        return count <= left ? S_OK : S_FALSE;
    }

    STDMETHODIMP Reset() override
    {
        position_ = 0;
        return S_OK;
    }

    STDMETHODIMP Clone(IEnumVARIANT** copy) override
    {
        *copy = new Enumeration(values_, position_);
        return S_OK;
    }

private:
    ~Enumeration() = default;

    const std::vector<Value> values_;
    std::size_t position_;
    ULONG references_ = 1;
};

}

Value enumerationOf(std::vector<Value> values)
{
    Value result;
    VARIANT* variant = result.receive();
    V_VT(variant) = VT_UNKNOWN;
    V_UNKNOWN(variant) = new Enumeration(std::move(values), 0);
    return result;
}

}

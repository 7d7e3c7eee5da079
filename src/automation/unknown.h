// What every COM object of one interface has to have: references, and the
// answer to the question for that interface.
#pragma once

#include <unknwn.h>

namespace automation {

// A new object starts with one reference, its creator's.
template <class Interface>
class Unknown : public Interface {
public:
    STDMETHODIMP QueryInterface(REFIID iid, void** result) override
    {
        if (iid != IID_IUnknown && !answers(iid)) {
            *result = nullptr;
            return E_NOINTERFACE;
        }
        *result = static_cast<Interface*>(this);
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

protected:
    virtual ~Unknown() = default;

    // Whether `iid` names the interface, or one that it can stand for.
    virtual bool answers(REFIID iid) const = 0;

private:
    ULONG references_ = 1;
};

}

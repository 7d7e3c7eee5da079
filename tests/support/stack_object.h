// A COM object that lives on a test's stack: it counts its references and leaves
// its end to the test.
#pragma once

#include <windows.h>
#include <unknwn.h>

namespace support {

template <class Interface, const IID& interfaceId>
class StackObject : public Interface {
public:
    StackObject() = default;
    StackObject(const StackObject&) = delete;
    StackObject& operator=(const StackObject&) = delete;

    STDMETHODIMP QueryInterface(REFIID iid, void** result) override
    {
        const bool isKnown = iid == IID_IUnknown || iid == interfaceId;
        *result = isKnown ? static_cast<Interface*>(this) : nullptr;
        if (!isKnown) return E_NOINTERFACE;
        AddRef();
        return S_OK;
    }
    STDMETHODIMP_(ULONG) AddRef() override { return ++references; }
    STDMETHODIMP_(ULONG) Release() override { return --references; }

    ULONG references = 1; // the test's own

protected:
    ~StackObject() = default;
};

}

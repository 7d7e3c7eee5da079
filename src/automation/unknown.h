// IUnknown for all COM objects of the program: the count of references and
// QueryInterface.
#pragma once

#include <unknwn.h>

#include <atomic>

namespace automation {

// A new object starts with one reference, its creator's.
template <class Interface>
class Unknown : public Interface {
public:
    STDMETHODIMP QueryInterface(REFIID iid, void** result) noexcept final
    {
        IUnknown* const found = iid == IID_IUnknown ? this : interfaceOf(iid);
        *result = found; // the address of each interface is that of its IUnknown
        if (!found) return E_NOINTERFACE;
        found->AddRef();
        return S_OK;
    }

    STDMETHODIMP_(ULONG) AddRef() noexcept final { return ++references_; }

    STDMETHODIMP_(ULONG) Release() noexcept final
    {
        const ULONG left = --references_;
        if (left == 0) delete this;
        return left;
    }

    ULONG references() const noexcept { return references_; }

protected:
    virtual ~Unknown() = default;

    // The interface that `iid` names, or one that can stand for it; null for none.
    virtual IUnknown* interfaceOf(REFIID iid) noexcept = 0;

private:
    std::atomic<ULONG> references_ = 1;
};

// A part of such an object, with interfaces of its own: it shares the object's
// life and references, and delegates QueryInterface to it.
template <class... Interfaces>
class Part : public Interfaces... {
public:
    Part(const Part&) = delete;
    Part& operator=(const Part&) = delete;

    STDMETHODIMP QueryInterface(REFIID iid, void** result) noexcept final
    {
        return owner_->QueryInterface(iid, result);
    }
    STDMETHODIMP_(ULONG) AddRef() noexcept final { return owner_->AddRef(); }
    STDMETHODIMP_(ULONG) Release() noexcept final { return owner_->Release(); }

protected:
    explicit Part(IUnknown* owner) noexcept : owner_(owner) {}
    ~Part() = default;

private:
    IUnknown* const owner_;
};

}

// Tells clients of which class an object is and which events it raises. Made
// to be a part of an object: it shares that object's life and references.
#pragma once

#include "desk/softphone/phone.h"

#include <ocidl.h>
#include <olectl.h>

namespace desk::softphone {

class ClassInfo final : public IProvideClassInfo2 {
public:
    // `owner` and `phone` outlive this.
    ClassInfo(IUnknown* owner, Phone& phone, REFGUID classId, REFGUID source) noexcept
        : owner_(owner), phone_(phone), classId_(classId), source_(source)
    {
    }
    ClassInfo(const ClassInfo&) = delete;
    ClassInfo& operator=(const ClassInfo&) = delete;

    // Whether the phone's settings let the object answer for this interface.
    bool offers(REFIID iid) const noexcept;

    STDMETHODIMP QueryInterface(REFIID iid, void** result) override { return owner_->QueryInterface(iid, result); }
    STDMETHODIMP_(ULONG) AddRef() override { return owner_->AddRef(); }
    STDMETHODIMP_(ULONG) Release() override { return owner_->Release(); }
    STDMETHODIMP GetClassInfo(ITypeInfo** type) override;
    STDMETHODIMP GetGUID(DWORD kind, GUID* guid) override;

private:
    IUnknown* const owner_;
    Phone& phone_;
    const GUID classId_;
    const GUID source_;
};

// Hands a description to a client.
HRESULT giveDescription(Phone& phone, REFGUID id, ITypeInfo** type) noexcept;

}

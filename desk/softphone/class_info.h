// Tells clients of which class an object is and which events it raises: a part of
// that object.
#pragma once

#include "automation/unknown.h"
#include "desk/softphone/phone.h"

#include <ocidl.h>
#include <olectl.h>

namespace desk::softphone {

class ClassInfo final : public automation::Part<IProvideClassInfo2> {
public:
    // `owner` and `phone` outlive this.
    ClassInfo(IUnknown* owner, Phone& phone, REFGUID classId, REFGUID source) noexcept
        : Part(owner), phone_(phone), classId_(classId), source_(source)
    {}

    // For the owner's answer, as the phone's settings have it; null when the
    // question is for another interface.
    IUnknown* interfaceOf(REFIID iid) noexcept;

    STDMETHODIMP GetClassInfo(ITypeInfo** type) noexcept override;
    STDMETHODIMP GetGUID(DWORD kind, GUID* guid) noexcept override;

private:
    Phone& phone_;
    const GUID classId_;
    const GUID source_;
};

// Hands a description to a client.
HRESULT giveDescription(Phone& phone, REFGUID id, ITypeInfo** type) noexcept;

}

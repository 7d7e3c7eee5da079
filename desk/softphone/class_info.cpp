#include "desk/softphone/class_info.h"

#include "automation/catch_all.h"

namespace desk::softphone {

IUnknown* ClassInfo::interfaceOf(REFIID iid) noexcept
{
    const bool isOffered = (iid == IID_IProvideClassInfo2 && phone_.discovery.classInfo2) ||
                           (iid == IID_IProvideClassInfo && phone_.discovery.classInfo);
    return isOffered ? this : nullptr;
}

STDMETHODIMP ClassInfo::GetClassInfo(ITypeInfo** type) noexcept
{
    return giveDescription(phone_, classId_, type);
}

STDMETHODIMP ClassInfo::GetGUID(DWORD kind, GUID* guid) noexcept
{
    if (kind != GUIDKIND_DEFAULT_SOURCE_DISP_IID) {
        *guid = GUID_NULL;
        return E_INVALIDARG;
    }
    *guid = source_;
    return S_OK;
}

HRESULT giveDescription(Phone& phone, REFGUID id, ITypeInfo** type) noexcept
{
    *type = nullptr;
    return automation::catchAll([&] {
        *type = phone.types.describe(id).get();
        (*type)->AddRef();
        return S_OK;
    });
}

}

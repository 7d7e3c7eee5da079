#include "desk/softphone/class_info.h"

namespace desk::softphone {

bool ClassInfo::offers(REFIID iid) const noexcept
{
    if (iid == IID_IProvideClassInfo2) return phone_.discovery.classInfo2;
    return iid == IID_IProvideClassInfo && phone_.discovery.classInfo;
}

STDMETHODIMP ClassInfo::GetClassInfo(ITypeInfo** type)
{
    return giveDescription(phone_, classId_, type);
}

STDMETHODIMP ClassInfo::GetGUID(DWORD kind, GUID* guid)
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
    try {
        *type = phone.types.describe(id).get();
        (*type)->AddRef();
        return S_OK;
    } catch (const automation::AutomationError& error) {
        return error.code();
    }
}

}

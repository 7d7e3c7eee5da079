#include "automation/server/dispatch.h"

#include "automation/catch_all.h"
#include "automation/text.h"

#include <atomic>
#include <new>
#include <utility>

namespace automation::server {

namespace {

std::atomic<long> liveObjects = 0;

BSTR bstr(const std::wstring& text)
{
    return SysAllocStringLen(text.data(), static_cast<UINT>(text.size()));
}

HRESULT raise(const Exception& error, EXCEPINFO* info)
{
    if (!info) return error.code;
    *info = EXCEPINFO{};
    info->scode = error.code;
    info->bstrSource = bstr(error.source);
    info->bstrDescription = bstr(error.description);
    return DISP_E_EXCEPTION;
}

HRESULT refuse(HRESULT code, unsigned argument, const Arguments& arguments, UINT* refused)
{
    if (refused && argument < arguments.size()) *refused = static_cast<UINT>(arguments.size() - 1 - argument);
    return code;
}

}

Dispatch::Dispatch() noexcept
{
    ++liveObjects;
}

Dispatch::~Dispatch()
{
    --liveObjects;
}

long Dispatch::liveCount() noexcept
{
    return liveObjects;
}

IUnknown* Dispatch::interfaceOf(REFIID iid) noexcept
{
    return iid == IID_IDispatch ? this : nullptr;
}

STDMETHODIMP Dispatch::GetTypeInfoCount(UINT* count) noexcept
{
    *count = 0;
    return S_OK;
}

STDMETHODIMP Dispatch::GetTypeInfo(UINT, LCID, ITypeInfo** type) noexcept
{
    *type = nullptr;
    return E_NOTIMPL;
}

STDMETHODIMP Dispatch::GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) noexcept
{
    return catchAll([&] {
        if (count == 0) return E_INVALIDARG;
        const HRESULT admitted = admitLookUp(names[0]);
        if (FAILED(admitted)) return admitted;
        // Named arguments are not offered, so only the member's own name has an identifier.
        for (UINT index = 1; index < count; ++index) ids[index] = DISPID_UNKNOWN;
        ids[0] = idOf(names[0]);
        return count == 1 && ids[0] != DISPID_UNKNOWN ? S_OK : DISP_E_UNKNOWNNAME;
    });
}

STDMETHODIMP Dispatch::Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* parameters, VARIANT* result,
                              EXCEPINFO* exception, UINT* refused) noexcept
{
    const ComPtr<IDispatch> alive(this);
    return catchAll([&] { return respond({id, flags, Arguments(*parameters)}, result, exception, refused); });
}

// Failures with more to report than an HRESULT are handled here, all others by catchAll.
HRESULT Dispatch::respond(const IncomingCall& call, VARIANT* result, EXCEPINFO* exception, UINT* refused)
try {
    const HRESULT admitted = admitCall(call);
    if (FAILED(admitted)) return admitted;
    Value value = carryOut(call);
    if (result) *result = value.release();
    return S_OK;
} catch (const Exception& error) {
    return raise(error, exception);
} catch (const Failure& error) {
    return refuse(error.code, error.argument, call.arguments, refused);
} catch (const AutomationError&) {
    throw;
} catch (const std::bad_alloc&) {
    throw;
} catch (const std::exception& error) {
    return raise({E_UNEXPECTED, L"", toWide(error.what())}, exception);
}

void checkFits(const IncomingCall& call, WORD kinds, unsigned minArguments, unsigned maxArguments)
{
    WORD wanted = call.flags;
    if (wanted & DISPATCH_PROPERTYPUTREF) wanted |= DISPATCH_PROPERTYPUT;
    if (!(wanted & kinds)) throw Failure{DISP_E_MEMBERNOTFOUND};
    const std::size_t forPut = call.isPut() ? 1 : 0;
    if (call.arguments.size() < minArguments + forPut || call.arguments.size() > maxArguments + forPut)
        throw Failure{DISP_E_BADPARAMCOUNT};
}

bool isSameName(std::wstring_view a, std::wstring_view b) noexcept
{
    return equalIgnoringCase(a, b);
}

}

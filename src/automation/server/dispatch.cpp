#include "automation/server/dispatch.h"

#include "automation/border.h"
#include "automation/text.h"

#include <atomic>
#include <new>
#include <utility>
#include <vector>

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

// What goes into the argument, in the argument's own type; everything that may
// fail is over then.
Value newContent(const VARIANT& argument, const Arguments::Output& output)
{
    switch (V_VT(&argument)) {
    case VT_BYREF | VT_BSTR: return output.value.text();
    case VT_BYREF | VT_I4: return output.value.int32();
    case VT_BYREF | VT_VARIANT: return output.value;
    default: throw Failure{DISP_E_TYPEMISMATCH, static_cast<unsigned>(output.index)};
    }
}

void exchange(const VARIANT& argument, Value& content) noexcept
{
    VARIANT other = content.release();
    switch (V_VT(&argument)) {
    case VT_BYREF | VT_BSTR: std::swap(*V_BSTRREF(&argument), V_BSTR(&other)); break;
    case VT_BYREF | VT_I4: *V_I4REF(&argument) = V_I4(&other); break;
    default: std::swap(*V_VARIANTREF(&argument), other);
    }
    VariantClear(&other);
}

HRESULT refuse(HRESULT code, unsigned argument, const Arguments& arguments, UINT* refused)
{
    if (refused && argument < arguments.size()) *refused = static_cast<UINT>(arguments.size() - 1 - argument);
    return code;
}

}

const VARIANT& Arguments::argument(std::size_t index) const
{
    if (index >= size()) throw Failure{DISP_E_BADPARAMCOUNT};
    return parameters_->rgvarg[size() - 1 - index];
}

const VARIANT& Arguments::raw(std::size_t index) const
{
    const VARIANT& found = argument(index);
    // A client may wrap any argument in a VARIANT passed by reference.
    return V_VT(&found) == (VT_BYREF | VT_VARIANT) ? *V_VARIANTREF(&found) : found;
}

bool Arguments::given(std::size_t index) const
{
    if (index >= size()) return false;
    const VARIANT& argument = raw(index);
    return !(V_VT(&argument) == VT_ERROR && V_ERROR(&argument) == DISP_E_PARAMNOTFOUND);
}

Value Arguments::value(std::size_t index) const
{
    return Value::copyOf(raw(index));
}

std::wstring Arguments::text(std::size_t index) const
try {
    return value(index).text();
} catch (const AutomationError& error) {
    throw Failure{error.code(), static_cast<unsigned>(index)};
}

std::int32_t Arguments::int32(std::size_t index) const
try {
    return value(index).int32();
} catch (const AutomationError& error) {
    throw Failure{error.code(), static_cast<unsigned>(index)};
}

bool Arguments::truth(std::size_t index) const
try {
    return value(index).truth();
} catch (const AutomationError& error) {
    throw Failure{error.code(), static_cast<unsigned>(index)};
}

DATE Arguments::date(std::size_t index) const
try {
    return value(index).asDate();
} catch (const AutomationError& error) {
    throw Failure{error.code(), static_cast<unsigned>(index)};
}

Object Arguments::object(std::size_t index) const
try {
    return value(index).object();
} catch (const AutomationError& error) {
    throw Failure{error.code(), static_cast<unsigned>(index)};
}

void Arguments::write(std::initializer_list<Output> outputs) const
{
    std::vector<Value> contents;
    contents.reserve(outputs.size());
    for (const Output& output : outputs) contents.push_back(newContent(argument(output.index), output));
    std::size_t number = 0;
    for (const Output& output : outputs) exchange(argument(output.index), contents[number++]);
}

Dispatch::Dispatch() noexcept
{
    ++liveObjects;
}

Dispatch::~Dispatch()
{
    --liveObjects;
}

long Dispatch::live() noexcept
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
    return atBorder([&] {
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
    return atBorder([&] { return respond({id, flags, Arguments(*parameters)}, result, exception, refused); });
}

// What needs more than an HRESULT to be told is told here, the rest at the border.
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
    return raise({E_UNEXPECTED, L"", wide(error.what())}, exception);
}

void checkFits(const IncomingCall& call, WORD kinds, unsigned least, unsigned most)
{
    WORD wanted = call.flags;
    if (wanted & DISPATCH_PROPERTYPUTREF) wanted |= DISPATCH_PROPERTYPUT;
    if (!(wanted & kinds)) throw Failure{DISP_E_MEMBERNOTFOUND};
    const std::size_t forPut = call.isPut() ? 1 : 0;
    if (call.arguments.size() < least + forPut || call.arguments.size() > most + forPut)
        throw Failure{DISP_E_BADPARAMCOUNT};
}

bool sameName(std::wstring_view a, std::wstring_view b) noexcept
{
    return equalWithoutCase(a, b);
}

}

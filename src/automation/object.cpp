#include "automation/object.h"

#include "automation/error.h"
#include "automation/outgoing_call.h"
#include "automation/owners.h"

#include <algorithm>
#include <vector>

namespace automation {

namespace {

// Turns what a failed Invoke left behind into the exception, freeing it.
AutomationError failure(Member member, HRESULT result, EXCEPINFO& info, UINT refused, UINT count)
{
    if (result == DISP_E_EXCEPTION && info.pfnDeferredFillIn) info.pfnDeferredFillIn(&info);
    const Bstr source(info.bstrSource);
    const Bstr description(info.bstrDescription);
    const Bstr helpFile(info.bstrHelpFile);

    HRESULT code = result;
    if (result == DISP_E_EXCEPTION && info.scode != 0) code = info.scode;
    else if (result == DISP_E_EXCEPTION && info.wCode != 0) code = MAKE_HRESULT(1, FACILITY_CONTROL, info.wCode);

    // Servers count arguments from the right.
    const bool aboutArgument = (result == DISP_E_TYPEMISMATCH || result == DISP_E_PARAMNOTFOUND) && refused < count;
    const unsigned argument = aboutArgument ? count - 1 - refused : AutomationError::noArgument;
    return AutomationError(member.text(), code, source.text(), description.text(), argument);
}

}

std::wstring Member::text() const
{
    return isNamed() ? std::wstring(name_) : L"DISPID " + std::to_wstring(id_);
}

const DISPID* DispatchIdCache::find(std::wstring_view name) const
{
    const auto found = ids_.find(name);
    return found == ids_.end() ? nullptr : &found->second;
}

void DispatchIdCache::remember(std::wstring_view name, DISPID id)
{
    ids_.insert_or_assign(std::wstring(name), id);
}

Object::Object(IDispatch* dispatch) : dispatch_(dispatch)
{
    if (dispatch) idCache_ = makeIdCache();
}

Object Object::usingIdCache(const SharedIdCache& idCache) const
{
    Object same = *this;
    same.idCache_ = idCache;
    return same;
}

Object Object::create(const wchar_t* progId)
{
    CLSID classId;
    HRESULT result = CLSIDFromProgID(progId, &classId);
    if (FAILED(result)) throw AutomationError(progId, result);

    ComPtr<IDispatch> dispatch;
    const OutgoingCall scope;
    result = scope.retryWhileBusy(
        [&] { return CoCreateInstance(classId, nullptr, CLSCTX_SERVER, IID_IDispatch, dispatch.receiveVoid()); });
    if (FAILED(result)) throw AutomationError(progId, result);
    return Object(dispatch.get());
}

Object Object::query(IUnknown* unknown)
{
    if (!unknown) return Object();
    ComPtr<IDispatch> dispatch;
    const OutgoingCall scope;
    check(unknown->QueryInterface(IID_IDispatch, dispatch.receiveVoid()), L"IDispatch");
    return Object(dispatch.get());
}

Value Object::get(Member member, std::initializer_list<Value> arguments) const
{
    return invoke(member, DISPATCH_METHOD | DISPATCH_PROPERTYGET, arguments);
}

// There is room for a result all the same: without, some systems' marshalling
// keeps an object that is the result, and with it the server's, for ever.
void Object::call(Member member, std::initializer_list<Value> arguments) const
{
    invoke(member, DISPATCH_METHOD, arguments);
}

void Object::put(Member member, const Value& value) const
{
    invoke(member, DISPATCH_PROPERTYPUT, {value});
}

DISPID Object::lookUp(Member member, const OutgoingCall& scope) const
{
    DISPID id = DISPID_UNKNOWN;
    auto name = const_cast<LPOLESTR>(member.name());
    const HRESULT result =
        scope.retryWhileBusy([&] { return dispatch_->GetIDsOfNames(IID_NULL, &name, 1, LOCALE_USER_DEFAULT, &id); });
    if (FAILED(result)) throw AutomationError(member.text(), result);
    idCache_->remember(member.name(), id);
    return id;
}

Value Object::invoke(Member member, WORD flags, std::initializer_list<Value> arguments) const
{
    if (!dispatch_) throw AutomationError(member.text(), objectNotSet);
    // The reference may be replaced by whatever runs while the call is out.
    const Object self = *this;
    const OutgoingCall scope; // one time limit for the look-up and the call

    const DISPID* remembered = member.isNamed() ? idCache_->find(member.name()) : nullptr;
    DISPID id = !member.isNamed() ? member.id() : remembered ? *remembered : self.lookUp(member, scope);

    std::vector<VARIANT> reversed;
    reversed.reserve(arguments.size());
    for (auto argument = arguments.end(); argument != arguments.begin();) reversed.push_back((--argument)->variant());
    DISPID putName = DISPID_PROPERTYPUT;
    const bool isPut = (flags & DISPATCH_PROPERTYPUT) != 0;
    const UINT count = static_cast<UINT>(reversed.size());
    DISPPARAMS parameters{reversed.data(), isPut ? &putName : nullptr, count, isPut ? 1u : 0u};

    Value result;
    EXCEPINFO info{};
    UINT refused = count;
    const auto attempt = [&] {
        return scope.retryWhileBusy([&] {
            return self.dispatch_->Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, flags, &parameters,
                                          isPut ? nullptr : result.receive(), &info, &refused);
        });
    };
    HRESULT code = attempt();
    if (code == DISP_E_MEMBERNOTFOUND && remembered) {
        // The name was learnt from another object of what was thought to be the same class.
        id = self.lookUp(member, scope);
        code = attempt();
    }
    if (FAILED(code)) throw failure(member, code, info, refused, count);
    return result;
}

}

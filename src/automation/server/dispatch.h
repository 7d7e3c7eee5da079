// The other direction: objects that this program offers to automation
// clients. A class lists its members in a table; this base answers names
// without regard to case, checks counts and kinds, and turns exceptions into
// what a real server returns.
#pragma once

#include "automation/error.h"
#include "automation/failure.h"
#include "automation/object.h"
#include "automation/server/arguments.h"
#include "automation/unknown.h"
#include "automation/value.h"

#include <windows.h>
#include <oaidl.h>

#include <string_view>

namespace automation::server {

using automation::Exception; // what a member throws
using automation::Failure;

// What a client asked for in one Invoke.
struct IncomingCall {
    DISPID id = DISPID_UNKNOWN;
    WORD flags = 0;
    Arguments arguments;

    bool isPut() const noexcept { return (flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) != 0; }
};

class Dispatch : public Unknown<IDispatch> {
public:
    // A new object starts with one reference, the creator's: see make().
    Dispatch() noexcept;
    Dispatch(const Dispatch&) = delete;
    Dispatch& operator=(const Dispatch&) = delete;

    // Objects of this kind alive in this process.
    static long liveCount() noexcept;

    STDMETHODIMP GetTypeInfoCount(UINT* count) noexcept override;
    STDMETHODIMP GetTypeInfo(UINT index, LCID locale, ITypeInfo** type) noexcept override;
    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) noexcept final;
    STDMETHODIMP Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* parameters, VARIANT* result,
                        EXCEPINFO* exception, UINT* refused) noexcept final;

protected:
    ~Dispatch() override;

    IUnknown* interfaceOf(REFIID iid) noexcept override;

    // The identifier of a member name, DISPID_UNKNOWN when there is none.
    virtual DISPID idOf(std::wstring_view name) = 0;

    // Carries the call out. Throws Exception, Failure or AutomationError.
    virtual Value answer(const IncomingCall& call) = 0;

    // Seen before each name look-up and each call; a failure code is returned
    // to the client in place of an answer.
    virtual HRESULT admitLookUp(std::wstring_view) { return S_OK; }
    virtual HRESULT admitCall(const IncomingCall&) { return S_OK; }

    // Around each admitted call, up to the moment before its answer leaves.
    virtual Value carryOut(const IncomingCall& call) { return answer(call); }

private:
    HRESULT respond(const IncomingCall& call, VARIANT* result, EXCEPINFO* exception, UINT* refused);
};

// One row of a member table. `handler` gets the object and the call; a
// property that can be written is called with isPut() and its new value as
// the last argument.
template <class Class>
struct MemberRow {
    const wchar_t* name;
    DISPID id;
    WORD kinds;             // DISPATCH_METHOD, DISPATCH_PROPERTYGET, DISPATCH_PROPERTYPUT, joined
    unsigned minArguments;  // arguments, the value of a put not counted
    unsigned maxArguments;
    Value (*handler)(Class& self, const IncomingCall& call);
};

inline constexpr WORD method = DISPATCH_METHOD;
inline constexpr WORD readOnly = DISPATCH_PROPERTYGET;
inline constexpr WORD readWrite = DISPATCH_PROPERTYGET | DISPATCH_PROPERTYPUT;

// Refuses a call that does not fit its row, with the codes of a real server.
void checkFits(const IncomingCall& call, WORD kinds, unsigned minArguments, unsigned maxArguments);

bool isSameName(std::wstring_view a, std::wstring_view b) noexcept;

// A Dispatch whose members are the rows of Class::members().
template <class Class, class Base = Dispatch>
class TableDispatch : public Base {
public:
    using Base::Base;

protected:
    DISPID idOf(std::wstring_view name) override
    {
        for (const MemberRow<Class>& row : Class::members())
            if (isSameName(row.name, name)) return row.id;
        return DISPID_UNKNOWN;
    }

    Value answer(const IncomingCall& call) override
    {
        for (const MemberRow<Class>& row : Class::members()) {
            if (row.id != call.id) continue;
            checkFits(call, row.kinds, row.minArguments, row.maxArguments);
            return row.handler(static_cast<Class&>(*this), call);
        }
        throw Failure{DISP_E_MEMBERNOTFOUND};
    }
};

// A new object, owned by the returned pointer.
template <class Class, class... Arguments>
ComPtr<Class> make(Arguments&&... arguments)
{
    return ComPtr<Class>::adopt(new Class(std::forward<Arguments>(arguments)...));
}

template <class Class>
Value valueOf(const ComPtr<Class>& object)
{
    return Value(Object(object.get()));
}

}

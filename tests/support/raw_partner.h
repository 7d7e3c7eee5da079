// An automation object under a test's thumb: it answers each name look-up and
// each call exactly as the test says, and keeps what it was asked. Lives on
// the test's stack; at its end nobody may hold a reference to it any more.
#pragma once

#include "support/stack_object.h"

#include <gtest/gtest.h>

#include <windows.h>
#include <oaidl.h>

#include <functional>
#include <map>
#include <string>
#include <vector>

namespace support {

class RawPartner : public StackObject<IDispatch, IID_IDispatch> {
public:
    struct Invocation {
        DISPID id = DISPID_UNKNOWN;
        WORD flags = 0;
        std::vector<VARTYPE> types;  // of the arguments, from left to right
        std::vector<DISPID> named;   // identifiers of the named arguments
    };

    // What Invoke got, for a test that answers by itself.
    struct Call {
        DISPID id;
        DISPPARAMS& parameters;
        VARIANT* result;
        EXCEPINFO* exception;
        UINT* refused;

        VARIANT& argument(std::size_t fromLeft) const { return parameters.rgvarg[parameters.cArgs - 1 - fromLeft]; }
    };

    RawPartner() = default;
    explicit RawPartner(std::map<std::wstring, DISPID> names) : ids(std::move(names)) {}
    virtual ~RawPartner() { EXPECT_EQ(references, 1u) << "references to the partner left behind"; }

    std::map<std::wstring, DISPID> ids;
    std::vector<std::wstring> lookUps;
    std::vector<Invocation> invocations;
    std::function<HRESULT()> onLookUp;           // a failure is returned in place of an identifier
    std::function<HRESULT(const Call&)> onCall;  // S_OK without one

    STDMETHODIMP GetTypeInfoCount(UINT* count) override
    {
        *count = 0;
        return S_OK;
    }
    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo** type) override
    {
        *type = nullptr;
        return E_NOTIMPL;
    }

    STDMETHODIMP GetIDsOfNames(REFIID, LPOLESTR* names, UINT, LCID, DISPID* id) override
    {
        lookUps.emplace_back(names[0]);
        if (onLookUp)
            if (const HRESULT result = onLookUp(); FAILED(result)) return result;
        const auto found = ids.find(names[0]);
        *id = found == ids.end() ? DISPID_UNKNOWN : found->second;
        return found == ids.end() ? DISP_E_UNKNOWNNAME : S_OK;
    }

    STDMETHODIMP Invoke(DISPID id, REFIID, LCID, WORD flags, DISPPARAMS* parameters, VARIANT* result,
                        EXCEPINFO* exception, UINT* refused) override
    {
        Invocation invocation{id, flags, {}, {}};
        for (UINT index = parameters->cArgs; index-- > 0;) invocation.types.push_back(V_VT(&parameters->rgvarg[index]));
        for (UINT index = 0; index < parameters->cNamedArgs; ++index)
            invocation.named.push_back(parameters->rgdispidNamedArgs[index]);
        invocations.push_back(std::move(invocation));
        return onCall ? onCall({id, *parameters, result, exception, refused}) : S_OK;
    }
};

}

// The identifier map in a test: every call to it is recorded, and fails when it
// was planned to. "Map.InsertId", "Collection.NewEnum"; all calls are methods.
#pragma once

#include "automation/com_ptr.h"
#include "automation/server/dispatch.h"
#include "automation/unknown.h"
#include "desk/common/recorder.h"

#include <map>
#include <string>

namespace hublink {

class FallibleMap final : public automation::Unknown<IDispatch> {
public:
    // `calls` outlives the object.
    FallibleMap(automation::ComPtr<IDispatch> map, desk::Recorder& calls, const wchar_t* className = L"Map")
        : map_(std::move(map)), calls_(calls), className_(className)
    {}

    STDMETHODIMP GetTypeInfoCount(UINT* count) override { return map_->GetTypeInfoCount(count); }
    STDMETHODIMP GetTypeInfo(UINT index, LCID locale, ITypeInfo** type) override
    {
        return map_->GetTypeInfo(index, locale, type);
    }

    STDMETHODIMP GetIDsOfNames(REFIID iid, LPOLESTR* names, UINT count, LCID locale, DISPID* ids) override
    {
        const HRESULT planned = calls_.lookUp(className_, names[0]);
        const HRESULT result = FAILED(planned) ? planned : map_->GetIDsOfNames(iid, names, count, locale, ids);
        if (SUCCEEDED(result)) names_[*ids] = names[0];
        return result;
    }

    STDMETHODIMP Invoke(DISPID id, REFIID iid, LCID locale, WORD flags, DISPPARAMS* parameters, VARIANT* result,
                        EXCEPINFO* exception, UINT* refused) override
    {
        const HRESULT planned = calls_.call(className_, id == DISPID_NEWENUM ? L"NewEnum" : names_[id],
                                            desk::CallKind::method, automation::server::Arguments(*parameters));
        if (FAILED(planned)) return planned;
        const HRESULT carriedOut = map_->Invoke(id, iid, locale, flags, parameters, result, exception, refused);
        if (SUCCEEDED(carriedOut) && V_VT(result) == VT_DISPATCH)
            V_DISPATCH(result) =
                new FallibleMap(automation::ComPtr<IDispatch>::adopt(V_DISPATCH(result)), calls_, L"Collection");
        return carriedOut;
    }

private:
    IUnknown* interfaceOf(REFIID iid) noexcept override { return iid == IID_IDispatch ? this : nullptr; }

    const automation::ComPtr<IDispatch> map_;
    desk::Recorder& calls_;
    const wchar_t* const className_;
    std::map<DISPID, std::wstring> names_{};
};

}

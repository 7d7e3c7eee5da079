#include "sample_object.h"

namespace partners {

using automation::check;
using automation::ComPtr;

namespace {

using Event = std::pair<DISPID, const wchar_t*>;

LPOLESTR name(const wchar_t* text)
{
    return const_cast<LPOLESTR>(text);
}

ComPtr<ITypeInfo> dispatchType()
{
    ComPtr<ITypeLib> standard;
    ComPtr<ITypeInfo> type;
    check(LoadTypeLib(L"stdole2.tlb", standard.receive()), L"stdole2.tlb");
    check(standard->GetTypeInfoOfGuid(IID_IDispatch, type.receive()), L"IDispatch");
    return type;
}

void implement(ICreateTypeInfo& type, UINT index, ITypeInfo* base, INT flags)
{
    HREFTYPE reference = 0;
    check(type.AddRefTypeInfo(base, &reference), L"AddRefTypeInfo");
    check(type.AddImplType(index, reference), L"AddImplType");
    if (flags) check(type.SetImplTypeFlags(index, flags), L"SetImplTypeFlags");
}

ComPtr<ITypeInfo> addInterface(ICreateTypeLib2& library, const wchar_t* typeName, const GUID& guid,
                               std::initializer_list<Event> events)
{
    ComPtr<ICreateTypeInfo> type;
    check(library.CreateTypeInfo(name(typeName), TKIND_DISPATCH, type.receive()), L"CreateTypeInfo");
    check(type->SetGuid(guid), L"SetGuid");
    implement(*type.get(), 0, dispatchType().get(), 0);
    UINT index = 0;
    for (const auto& [id, eventName] : events) {
        FUNCDESC function{};
        function.memid = id;
        function.funckind = FUNC_DISPATCH;
        function.invkind = INVOKE_FUNC;
        function.callconv = CC_STDCALL;
        function.elemdescFunc.tdesc.vt = VT_VOID;
        LPOLESTR names[] = {name(eventName)};
        check(type->AddFuncDesc(index, &function), L"AddFuncDesc");
        check(type->SetFuncAndParamNames(index, names, 1), L"SetFuncAndParamNames");
        ++index;
    }
    check(type->LayOut(), L"LayOut");
    return automation::query<ITypeInfo>(type.get(), IID_ITypeInfo);
}

void writeLibrary(const std::wstring& path, WORD major, WORD minor)
{
    ComPtr<ICreateTypeLib2> library;
    check(CreateTypeLib2(SYS_WIN32, path.c_str(), library.receive()), L"CreateTypeLib2");
    check(library->SetGuid(sampleLibrary), L"SetGuid");
    check(library->SetVersion(major, minor), L"SetVersion");
    check(library->SetName(name(L"SampleLibrary")), L"SetName");
    const auto own = addInterface(*library.get(), L"_Sample", sampleInterface, {{1, L"Name"}});
    const auto events = addInterface(*library.get(), L"_Events", sampleEvents, {{7, L"OnSample"}, {8, L"OnOther"}});
    const auto others = addInterface(*library.get(), L"_OtherEvents", otherEvents, {{9, L"OnSecond"}});

    ComPtr<ICreateTypeInfo> coclass;
    check(library->CreateTypeInfo(name(L"Sample"), TKIND_COCLASS, coclass.receive()), L"CreateTypeInfo");
    check(coclass->SetGuid(sampleClass), L"SetGuid");
    // The second source stands before the default one, so that order alone finds the wrong one.
    implement(*coclass.get(), 0, own.get(), IMPLTYPEFLAG_FDEFAULT);
    implement(*coclass.get(), 1, others.get(), IMPLTYPEFLAG_FSOURCE);
    implement(*coclass.get(), 2, events.get(), IMPLTYPEFLAG_FSOURCE | IMPLTYPEFLAG_FDEFAULT);
    check(coclass->LayOut(), L"LayOut");
    check(library->SaveAllChanges(), L"SaveAllChanges");
}

}

SampleLibrary::SampleLibrary(WORD major, WORD minor) : path_(folder_.file(L"sample.tlb"))
{
    writeLibrary(path_, major, minor);
    check(LoadTypeLibEx(path_.c_str(), REGKIND_NONE, library_.receive()), L"LoadTypeLibEx");
}

ComPtr<ITypeInfo> SampleLibrary::type(const GUID& guid) const
{
    ComPtr<ITypeInfo> type;
    check(library_->GetTypeInfoOfGuid(guid, type.receive()), L"GetTypeInfoOfGuid");
    return type;
}

IUnknown* Sample::interfaceOf(REFIID iid) noexcept
{
    if (iid == IID_IProvideClassInfo && manners_.classInfo) return &classInfo_;
    if (iid == IID_IProvideClassInfo2 && manners_.defaultSource) return &classInfo_;
    if (IUnknown* const event = events.interfaceOf(iid)) return event;
    return Dispatch::interfaceOf(iid);
}

STDMETHODIMP Sample::GetTypeInfo(UINT, LCID, ITypeInfo** type) noexcept
{
    *type = manners_.ownType.get();
    if (!*type) return E_NOTIMPL;
    (*type)->AddRef();
    return S_OK;
}

STDMETHODIMP SampleClassInfo::GetClassInfo(ITypeInfo** type)
{
    *type = manners_.classInfo.get();
    if (!*type) return E_FAIL;
    (*type)->AddRef();
    return S_OK;
}

STDMETHODIMP SampleClassInfo::GetGUID(DWORD kind, GUID* guid)
{
    if (kind != GUIDKIND_DEFAULT_SOURCE_DISP_IID) return E_INVALIDARG;
    *guid = *manners_.defaultSource;
    return S_OK;
}

}

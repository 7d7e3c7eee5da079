#include "automation/event_source.h"

#include "automation/error.h"
#include "automation/outgoing_call.h"
#include "automation/owners.h"
#include "automation/registered_type_library.h"

#include <ocidl.h>
#include <oleauto.h>
#include <olectl.h>

namespace automation {

namespace {

// Owns the attributes of a type.
class TypeAttributes {
public:
    explicit TypeAttributes(ITypeInfo* type) : type_(type) { check(type->GetTypeAttr(&attributes_), L"GetTypeAttr"); }
    ~TypeAttributes() { type_->ReleaseTypeAttr(attributes_); }
    TypeAttributes(const TypeAttributes&) = delete;
    TypeAttributes& operator=(const TypeAttributes&) = delete;
    const TYPEATTR* operator->() const { return attributes_; }

private:
    ITypeInfo* type_;
    TYPEATTR* attributes_ = nullptr;
};

// Owns the description of one of its functions; empty where the type has none to give.
class FunctionDescription {
public:
    FunctionDescription(ITypeInfo* type, UINT index) : type_(type)
    {
        if (FAILED(type->GetFuncDesc(index, &function_))) function_ = nullptr;
    }
    ~FunctionDescription()
    {
        if (function_) type_->ReleaseFuncDesc(function_);
    }
    FunctionDescription(const FunctionDescription&) = delete;
    FunctionDescription& operator=(const FunctionDescription&) = delete;
    explicit operator bool() const { return function_ != nullptr; }
    const FUNCDESC* operator->() const { return function_; }

private:
    ITypeInfo* type_;
    FUNCDESC* function_ = nullptr;
};

IID interfaceIdOf(ITypeInfo* type)
{
    return TypeAttributes(type)->guid;
}

// A dual interface has members of its own behind those of IDispatch.
bool isDispatchOnly(ITypeInfo* type)
{
    const TypeAttributes attributes(type);
    return attributes->typekind == TKIND_DISPATCH && !(attributes->wTypeFlags & TYPEFLAG_FDUAL);
}

ComPtr<ITypeInfo> implementedType(ITypeInfo* coclass, UINT index)
{
    ComPtr<ITypeInfo> type;
    HREFTYPE reference = 0;
    if (SUCCEEDED(coclass->GetRefTypeOfImplType(index, &reference))) coclass->GetRefTypeInfo(reference, type.receive());
    return type;
}

// The coclass's source interface: the wanted one, or with IID_NULL the default one.
ComPtr<ITypeInfo> findSourceInterface(ITypeInfo* coclass, REFIID wanted)
{
    const TypeAttributes attributes(coclass);
    if (attributes->typekind != TKIND_COCLASS) return nullptr;
    for (UINT index = 0; index < attributes->cImplTypes; ++index) {
        INT flags = 0;
        if (FAILED(coclass->GetImplTypeFlags(index, &flags)) || !(flags & IMPLTYPEFLAG_FSOURCE)) continue;
        ComPtr<ITypeInfo> type = implementedType(coclass, index);
        if (!type) continue;
        const bool isWanted =
            wanted == IID_NULL ? (flags & IMPLTYPEFLAG_FDEFAULT) != 0 : wanted == interfaceIdOf(type.get());
        if (isWanted) return type;
    }
    return nullptr;
}

bool implements(ITypeInfo* coclass, REFIID iid)
{
    const TypeAttributes attributes(coclass);
    if (attributes->typekind != TKIND_COCLASS) return false;
    for (UINT index = 0; index < attributes->cImplTypes; ++index) {
        const ComPtr<ITypeInfo> type = implementedType(coclass, index);
        if (type && interfaceIdOf(type.get()) == iid) return true;
    }
    return false;
}

ComPtr<ITypeInfo> readClassInfo(const Object& object)
{
    ComPtr<ITypeInfo> info;
    if (const auto provider = query<IProvideClassInfo>(object.dispatch(), IID_IProvideClassInfo))
        provider->GetClassInfo(info.receive());
    return info;
}

ComPtr<ITypeInfo> sourceFromClassInfo2(const Object& object)
{
    const auto provider = query<IProvideClassInfo2>(object.dispatch(), IID_IProvideClassInfo2);
    IID wanted = IID_NULL;
    if (!provider || FAILED(provider->GetGUID(GUIDKIND_DEFAULT_SOURCE_DISP_IID, &wanted))) return nullptr;
    const auto info = readClassInfo(object);
    return info ? findSourceInterface(info.get(), wanted) : nullptr;
}

ComPtr<ITypeInfo> sourceFromClassInfo(const Object& object)
{
    const auto info = readClassInfo(object);
    return info ? findSourceInterface(info.get(), IID_NULL) : nullptr;
}

// The class that offers the object's own interface, in the library that holds it.
ComPtr<ITypeInfo> sourceFromContainingLibrary(const Object& object)
{
    ComPtr<ITypeInfo> own;
    ComPtr<ITypeLib> library;
    UINT index = 0;
    if (FAILED(object.dispatch()->GetTypeInfo(0, LOCALE_USER_DEFAULT, own.receive())) || !own ||
        FAILED(own->GetContainingTypeLib(library.receive(), &index)))
        return nullptr;
    const IID iid = interfaceIdOf(own.get());
    for (UINT type = 0; type < library->GetTypeInfoCount(); ++type) {
        ComPtr<ITypeInfo> candidate;
        if (FAILED(library->GetTypeInfo(type, candidate.receive())) || !implements(candidate.get(), iid)) continue;
        if (auto source = findSourceInterface(candidate.get(), IID_NULL)) return source;
    }
    return nullptr;
}

// The interface of one of the object's connection points, described in the
// library registered for the object's application.
ComPtr<ITypeInfo> sourceFromRegisteredLibrary(const Object& object, const wchar_t* progId)
{
    const auto library = registeredTypeLibrary(progId);
    const auto container = query<IConnectionPointContainer>(object.dispatch(), IID_IConnectionPointContainer);
    ComPtr<IEnumConnectionPoints> points;
    if (!library || !container || FAILED(container->EnumConnectionPoints(points.receive()))) return nullptr;
    ComPtr<IConnectionPoint> point;
    while (points->Next(1, point.receive(), nullptr) == S_OK) {
        IID iid;
        ComPtr<ITypeInfo> type;
        if (SUCCEEDED(point->GetConnectionInterface(&iid)) &&
            SUCCEEDED(library->GetTypeInfoOfGuid(iid, type.receive())))
            return type;
    }
    return nullptr;
}

// Names are read function by function: the look-up by name does not work
// across processes everywhere.
std::map<DISPID, std::wstring> readEventNames(ITypeInfo* source)
{
    std::map<DISPID, std::wstring> names;
    const TypeAttributes attributes(source);
    for (UINT index = 0; index < attributes->cFuncs; ++index) {
        const FunctionDescription function(source, index);
        if (!function) continue;
        Bstr name;
        UINT count = 0;
        if (SUCCEEDED(source->GetNames(function->memid, name.receive(), 1, &count)) && count == 1)
            names.emplace(function->memid, name.text());
    }
    return names;
}

}

EventSource findEventSource(const Object& object, const wchar_t* progId)
{
    if (!object) throw AutomationError(L"event source", objectNotSet);
    const OutgoingCall scope;
    ComPtr<ITypeInfo> source = sourceFromClassInfo2(object);
    if (!source) source = sourceFromClassInfo(object);
    if (!source) source = sourceFromContainingLibrary(object);
    if (!source) source = sourceFromRegisteredLibrary(object, progId);
    if (!source) throw AutomationError(L"event source", CONNECT_E_NOCONNECTION);
    return {interfaceIdOf(source.get()), readEventNames(source.get()), isDispatchOnly(source.get())};
}

}

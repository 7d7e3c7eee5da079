#include "automation/event_source.h"

#include "automation/error.h"
#include "automation/outgoing_call.h"
#include "automation/owners.h"

#include <ocidl.h>
#include <oleauto.h>
#include <olectl.h>

#include <algorithm>
#include <cwchar>
#include <utility>

namespace automation {

namespace {

// What a type description tells of the type, given back in time.
class Attributes {
public:
    explicit Attributes(ITypeInfo* type) : type_(type) { check(type->GetTypeAttr(&attributes_), L"GetTypeAttr"); }
    ~Attributes() { type_->ReleaseTypeAttr(attributes_); }
    Attributes(const Attributes&) = delete;
    Attributes& operator=(const Attributes&) = delete;
    const TYPEATTR* operator->() const { return attributes_; }

private:
    ITypeInfo* type_;
    TYPEATTR* attributes_ = nullptr;
};

// The same of one of its functions; empty where it cannot be told.
class Function {
public:
    Function(ITypeInfo* type, UINT index) : type_(type)
    {
        if (FAILED(type->GetFuncDesc(index, &function_))) function_ = nullptr;
    }
    ~Function()
    {
        if (function_) type_->ReleaseFuncDesc(function_);
    }
    Function(const Function&) = delete;
    Function& operator=(const Function&) = delete;
    explicit operator bool() const { return function_ != nullptr; }
    const FUNCDESC* operator->() const { return function_; }

private:
    ITypeInfo* type_;
    FUNCDESC* function_ = nullptr;
};

IID interfaceIdOf(ITypeInfo* type)
{
    return Attributes(type)->guid;
}

// A dual interface has members of its own behind those of IDispatch.
bool isDispatchOnly(ITypeInfo* type)
{
    const Attributes attributes(type);
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
ComPtr<ITypeInfo> sourceOfClass(ITypeInfo* coclass, REFIID wanted)
{
    const Attributes attributes(coclass);
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
    const Attributes attributes(coclass);
    if (attributes->typekind != TKIND_COCLASS) return false;
    for (UINT index = 0; index < attributes->cImplTypes; ++index) {
        const ComPtr<ITypeInfo> type = implementedType(coclass, index);
        if (type && interfaceIdOf(type.get()) == iid) return true;
    }
    return false;
}

ComPtr<ITypeInfo> classInfo(const Object& object)
{
    ComPtr<ITypeInfo> info;
    if (const auto provider = query<IProvideClassInfo>(object.dispatch(), IID_IProvideClassInfo))
        provider->GetClassInfo(info.receive());
    return info;
}

ComPtr<ITypeInfo> fromClassInfo2(const Object& object)
{
    const auto provider = query<IProvideClassInfo2>(object.dispatch(), IID_IProvideClassInfo2);
    IID wanted = IID_NULL;
    if (!provider || FAILED(provider->GetGUID(GUIDKIND_DEFAULT_SOURCE_DISP_IID, &wanted))) return nullptr;
    const auto info = classInfo(object);
    return info ? sourceOfClass(info.get(), wanted) : nullptr;
}

ComPtr<ITypeInfo> fromClassInfo(const Object& object)
{
    const auto info = classInfo(object);
    return info ? sourceOfClass(info.get(), IID_NULL) : nullptr;
}

// The class that offers the object's own interface, in the library that holds it.
ComPtr<ITypeInfo> fromContainingLibrary(const Object& object)
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
        if (auto source = sourceOfClass(candidate.get(), IID_NULL)) return source;
    }
    return nullptr;
}

// The identifier text of the type library that the class names, "" without one.
std::wstring libraryIdOf(const wchar_t* progId)
{
    CLSID classId;
    wchar_t classText[64];
    wchar_t libraryText[64];
    LONG size = sizeof libraryText;
    if (FAILED(CLSIDFromProgID(progId, &classId)) || !StringFromGUID2(classId, classText, 64)) return L"";
    const std::wstring key = std::wstring(L"CLSID\\") + classText + L"\\TypeLib";
    return RegQueryValueW(HKEY_CLASSES_ROOT, key.c_str(), libraryText, &size) == ERROR_SUCCESS ? libraryText : L"";
}

// The latest registered version of a type library. Versions are keys named
// "major.minor" in hexadecimal.
ComPtr<ITypeLib> latestLibrary(const std::wstring& libraryText)
{
    ComPtr<ITypeLib> library;
    IID libraryId;
    HKEY opened = nullptr;
    if (FAILED(CLSIDFromString(const_cast<LPOLESTR>(libraryText.c_str()), &libraryId)) ||
        RegOpenKeyExW(HKEY_CLASSES_ROOT, (L"TypeLib\\" + libraryText).c_str(), 0, KEY_READ, &opened) != ERROR_SUCCESS)
        return library;
    const RegistryKey versions(opened);
    std::pair<unsigned long, unsigned long> latest{0, 0};
    wchar_t name[32];
    for (DWORD index = 0; RegEnumKeyW(versions.get(), index, name, 32) == ERROR_SUCCESS; ++index) {
        wchar_t* rest = nullptr;
        const unsigned long major = std::wcstoul(name, &rest, 16);
        latest = std::max(latest, {major, *rest == L'.' ? std::wcstoul(rest + 1, nullptr, 16) : 0});
    }
    LoadRegTypeLib(libraryId, static_cast<WORD>(latest.first), static_cast<WORD>(latest.second), LOCALE_NEUTRAL,
                   library.receive());
    return library;
}

// The interface of one of the object's connection points, described in the
// library registered for the object's application.
ComPtr<ITypeInfo> fromRegisteredLibrary(const Object& object, const wchar_t* progId)
{
    const auto library = latestLibrary(libraryIdOf(progId));
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
std::map<DISPID, std::wstring> eventNames(ITypeInfo* source)
{
    std::map<DISPID, std::wstring> names;
    const Attributes attributes(source);
    for (UINT index = 0; index < attributes->cFuncs; ++index) {
        const Function function(source, index);
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
    ComPtr<ITypeInfo> source = fromClassInfo2(object);
    if (!source) source = fromClassInfo(object);
    if (!source) source = fromContainingLibrary(object);
    if (!source) source = fromRegisteredLibrary(object, progId);
    if (!source) throw AutomationError(L"event source", CONNECT_E_NOCONNECTION);
    return {interfaceIdOf(source.get()), eventNames(source.get()), isDispatchOnly(source.get())};
}

}

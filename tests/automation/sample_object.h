// An object that raises events, and its type library, made while the tests
// run: the interface `_Sample`, the default source `_Events` (OnSample 7,
// OnOther 8) and a second source `_OtherEvents` (OnSecond 9) of class `Sample`.
#pragma once

#include "automation/server/dispatch.h"
#include "automation/server/event_point.h"
#include "support/scratch_folder.h"

#include <ocidl.h>
#include <oleauto.h>

namespace partners {

inline constexpr GUID sampleLibrary{0x6a0c1d40, 0x52f7, 0x4e0b, {0x9d, 0x31, 0x77, 0x20, 0x15, 0xe8, 0x4a, 0x01}};
inline constexpr GUID sampleClass{0x6a0c1d40, 0x52f7, 0x4e0b, {0x9d, 0x31, 0x77, 0x20, 0x15, 0xe8, 0x4a, 0x02}};
inline constexpr GUID sampleInterface{0x6a0c1d40, 0x52f7, 0x4e0b, {0x9d, 0x31, 0x77, 0x20, 0x15, 0xe8, 0x4a, 0x03}};
inline constexpr GUID sampleEvents{0x6a0c1d40, 0x52f7, 0x4e0b, {0x9d, 0x31, 0x77, 0x20, 0x15, 0xe8, 0x4a, 0x04}};
inline constexpr GUID otherEvents{0x6a0c1d40, 0x52f7, 0x4e0b, {0x9d, 0x31, 0x77, 0x20, 0x15, 0xe8, 0x4a, 0x05}};

class SampleLibrary {
public:
    explicit SampleLibrary(WORD major = 1, WORD minor = 0);

    automation::ComPtr<ITypeInfo> type(const GUID& guid) const;

    const std::wstring& path() const { return path_; }
    ITypeLib* library() const { return library_.get(); }

private:
    const support::ScratchFolder folder_;
    const std::wstring path_;
    automation::ComPtr<ITypeLib> library_;
};

// What the object tells about itself; everything else it keeps to itself.
struct SampleManners {
    automation::ComPtr<ITypeInfo> classInfo;           // IProvideClassInfo
    const GUID* defaultSource = nullptr;               // IProvideClassInfo2
    automation::ComPtr<ITypeInfo> ownType;             // IDispatch::GetTypeInfo
    GUID raises = sampleEvents;                        // its one connection point
};

// The part of the object that tells its class: it shares the object's life.
class SampleClassInfo final : public automation::Part<IProvideClassInfo2> {
public:
    SampleClassInfo(IDispatch* owner, const SampleManners& manners) : Part(owner), manners_(manners) {}

    STDMETHODIMP GetClassInfo(ITypeInfo** type) override;
    STDMETHODIMP GetGUID(DWORD kind, GUID* guid) override;

private:
    const SampleManners& manners_;
};

class Sample final : public automation::server::Dispatch {
public:
    explicit Sample(const SampleManners& manners)
        : events(static_cast<IDispatch*>(this), manners.raises), manners_(manners), classInfo_(this, manners_)
    {}

    automation::server::EventPoint events;

    STDMETHODIMP GetTypeInfo(UINT, LCID, ITypeInfo** type) noexcept override;

protected:
    IUnknown* interfaceOf(REFIID iid) noexcept override;
    DISPID idOf(std::wstring_view) override { return DISPID_UNKNOWN; }
    automation::Value answer(const automation::server::IncomingCall&) override { return {}; }

private:
    const SampleManners manners_;
    SampleClassInfo classInfo_;
};

}

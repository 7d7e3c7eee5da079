// The bases of the softphone's automation objects: the desk's recorded object
// with planned wrong answers, described in the type library; and the same with
// events.
#pragma once

#include "automation/server/event_point.h"
#include "desk/common/recorded_object.h"
#include "desk/softphone/class_info.h"
#include "desk/softphone/guids.h"
#include "desk/softphone/phone.h"

namespace desk::softphone {

template <class Class>
class PhoneObject : public RecordedTable<Class> {
public:
    // `phone` outlives the object. `id` is its interface in the type library;
    // GUID_NULL for a class that the library does not describe.
    PhoneObject(Phone& phone, const wchar_t* className, REFGUID id) noexcept
        : RecordedTable<Class>(phone.recorder, className), phone_(phone), id_(id)
    {}

    Phone& phone() const noexcept { return phone_; }

    STDMETHODIMP GetTypeInfoCount(UINT* count) noexcept override
    {
        *count = describes() ? 1 : 0;
        return S_OK;
    }

    STDMETHODIMP GetTypeInfo(UINT index, LCID, ITypeInfo** type) noexcept override
    {
        *type = nullptr;
        if (!describes()) return E_NOTIMPL;
        return index == 0 ? giveDescription(phone_, id_, type) : DISP_E_BADINDEX;
    }

protected:
    IUnknown* interfaceOf(REFIID iid) noexcept override
    {
        const bool own = iid == id_ && id_ != GUID_NULL;
        return RecordedTable<Class>::interfaceOf(own ? IID_IDispatch : iid);
    }

    Value answer(const IncomingCall& call) override
    {
        const MemberSummary* member = this->memberOf(call.id);
        const Value* planned = member ? phone_.answers.find(this->className(), member->name) : nullptr;
        return planned ? *planned : RecordedTable<Class>::answer(call);
    }

private:
    bool describes() const noexcept { return id_ != GUID_NULL && phone_.discovery.typeInfo; }

    Phone& phone_;
    const GUID id_;
};

struct EventClass {
    GUID interfaceId;
    GUID classId;
    GUID source;
};

template <class Class>
class EventObject : public PhoneObject<Class> {
public:
    EventObject(Phone& phone, const wchar_t* className, const EventClass& ids) noexcept
        : PhoneObject<Class>(phone, className, ids.interfaceId), events(this, ids.source),
          classInfo_(this, phone, ids.classId, ids.source)
    {}

    automation::server::EventPoint events;

protected:
    IUnknown* interfaceOf(REFIID iid) noexcept override
    {
        if (IUnknown* const event = events.interfaceOf(iid)) return event;
        if (IUnknown* const info = classInfo_.interfaceOf(iid)) return info;
        return PhoneObject<Class>::interfaceOf(iid);
    }

private:
    ClassInfo classInfo_;
};

}

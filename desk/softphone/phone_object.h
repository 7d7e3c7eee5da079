// The bases of the softphone's automation objects: the desk's recorded object
// with planned wrong answers, described in the type library; and the same with
// events.
#pragma once

#include "automation/server/connection_point.h"
#include "desk/common/recorded_object.h"
#include "desk/softphone/class_info.h"
#include "desk/softphone/guids.h"
#include "desk/softphone/phone.h"

namespace desk::softphone {

using automation::Value;
using automation::server::IncomingCall;
using automation::server::MemberRow;

template <class Class>
class PhoneObject : public RecordedTable<Class> {
public:
    // `phone` outlives the object. `id` is its interface in the type library;
    // GUID_NULL for a class that the library does not describe.
    PhoneObject(Phone& phone, const wchar_t* className, REFGUID id) noexcept
        : RecordedTable<Class>(phone.recorder, className), phone_(phone), id_(id)
    {
    }

    Phone& phone() const noexcept { return phone_; }

    STDMETHODIMP QueryInterface(REFIID iid, void** result) override
    {
        const bool own = iid == id_ && id_ != GUID_NULL;
        return RecordedTable<Class>::QueryInterface(own ? IID_IDispatch : iid, result);
    }

    STDMETHODIMP GetTypeInfoCount(UINT* count) override
    {
        *count = describes() ? 1 : 0;
        return S_OK;
    }

    STDMETHODIMP GetTypeInfo(UINT index, LCID, ITypeInfo** type) override
    {
        *type = nullptr;
        if (!describes()) return E_NOTIMPL;
        return index == 0 ? giveDescription(phone_, id_, type) : DISP_E_BADINDEX;
    }

protected:
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
    {
    }

    STDMETHODIMP QueryInterface(REFIID iid, void** result) override
    {
        if (iid == IID_IConnectionPointContainer)
            *result = events.container();
        else if (iid == IID_IConnectionPoint) // one COM object with its point: a proxy asks here for both
            *result = static_cast<IConnectionPoint*>(&events);
        else if (classInfo_.offers(iid))
            *result = static_cast<IProvideClassInfo2*>(&classInfo_);
        else
            return PhoneObject<Class>::QueryInterface(iid, result);
        this->AddRef();
        return S_OK;
    }

    automation::server::EventPoint events;

private:
    ClassInfo classInfo_;
};

}

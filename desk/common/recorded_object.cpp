#include "desk/common/recorded_object.h"

namespace desk {

namespace {

// Late-bound clients ask for a property and a method at once, since they
// cannot know which of the two a name is; the object does.
CallKind kindOf(WORD flags, const MemberSummary* member)
{
    if (flags & (DISPATCH_PROPERTYPUT | DISPATCH_PROPERTYPUTREF)) return CallKind::put;
    if (!(flags & DISPATCH_METHOD)) return CallKind::get;
    if (!(flags & DISPATCH_PROPERTYGET)) return CallKind::method;
    return member && (member->kinds & DISPATCH_METHOD) ? CallKind::method : CallKind::get;
}

}

HRESULT RecordedObject::admitLookUp(std::wstring_view name)
{
    return recorder_.lookUp(className_, name);
}

HRESULT RecordedObject::admitCall(const automation::server::IncomingCall& call)
{
    const MemberSummary* member = memberOf(call.id);
    std::wstring name = member ? std::wstring(member->name) : L"DISPID " + std::to_wstring(call.id);
    return recorder_.call(className_, std::move(name), kindOf(call.flags, member), call.arguments);
}

// Calls may come in while one is carried out, so what was planned for after
// this one, or in place of it, is taken along first.
automation::Value RecordedObject::carryOut(const automation::server::IncomingCall& call)
{
    const Fault left = recorder_.takePendingFault();
    if (left.action == Fault::Action::answer) return left.result;
    automation::Value value = Dispatch::carryOut(call);
    const HRESULT result = recorder_.apply(left, false);
    if (FAILED(result)) throw automation::server::Failure{result};
    return value;
}

}

#include "automation/enumeration.h"

#include "automation/error.h"
#include "automation/outgoing_call.h"

namespace automation {

Enumeration::Enumeration(const Object& collection)
{
    const Value value = collection.get(DISPID_NEWENUM);
    if ((value.type() != VT_UNKNOWN && value.type() != VT_DISPATCH) || !V_UNKNOWN(&value.variant()))
        throw AutomationError(L"enumeration", DISP_E_TYPEMISMATCH);
    const OutgoingCall scope;
    check(V_UNKNOWN(&value.variant())->QueryInterface(IID_IEnumVARIANT,
                                                      enumerator_.receiveVoid()),
          L"IEnumVARIANT");
}

bool Enumeration::next(Value& element)
{
    const OutgoingCall scope;
    ULONG fetched = 0;
    const HRESULT result =
        scope.retryWhileBusy([&] { return enumerator_->Next(1, element.receive(), &fetched); });
    check(result, L"Next");
    return fetched == 1;
}

}

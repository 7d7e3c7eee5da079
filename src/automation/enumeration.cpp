#include "automation/enumeration.h"

#include "automation/error.h"
#include "automation/outgoing_call.h"

#include <array>
#include <utility>

namespace automation {

Enumeration::Enumeration(const Object& collection)
{
    const Value value = collection.get(DISPID_NEWENUM);
    if ((value.type() != VT_UNKNOWN && value.type() != VT_DISPATCH) || !V_UNKNOWN(&value.variant()))
        throw AutomationError(L"enumeration", DISP_E_TYPEMISMATCH);
    const OutgoingCall scope;
    check(V_UNKNOWN(&value.variant())->QueryInterface(IID_IEnumVARIANT, enumerator_.receiveVoid()), L"IEnumVARIANT");
}

bool Enumeration::next(Value& element)
{
    if (fetched_.empty() && !atEnd_) fetch();
    if (fetched_.empty()) return false;
    element = std::move(fetched_.front());
    fetched_.pop_front();
    return true;
}

void Enumeration::fetch()
{
    std::array<VARIANT, 64> block{};
    ULONG count = 0;
    const OutgoingCall scope;
    const HRESULT result =
        scope.retryWhileBusy([&] { return enumerator_->Next(static_cast<ULONG>(block.size()), block.data(), &count); });
    check(result, L"Next");
    for (ULONG index = 0; index < count; ++index) *fetched_.emplace_back().receive() = block[index];
    atEnd_ = result != S_OK || count == 0;
}

}

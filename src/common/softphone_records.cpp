#include "common/softphone_records.h"

namespace hublink {

using automation::Value;

namespace {

// Of a history item, which is bound by dispatch identifier where an entry is by name.
constexpr DISPID historyIdHigh = 1;
constexpr DISPID historyIdLow = 2;

SoftphoneId idOf(const automation::Object& record, automation::Member high, automation::Member low)
{
    const std::int32_t idHigh = record.get(high).int32();
    return {idHigh, record.get(low).int32()};
}

}

std::wstring SoftphoneRecord::number() const
{
    return object_.get(L"Number").text();
}

std::wstring SoftphoneRecord::lastName() const
{
    return object_.get(L"LastName").text();
}

std::wstring SoftphoneRecord::firstName() const
{
    return object_.get(L"FirstName").text();
}

bool SoftphoneCall::isIncoming() const
{
    return object_.get(L"Incoming").isTrue();
}

std::wstring SoftphoneCall::destinationNumber() const
{
    return object_.get(L"DestinationNumber").text();
}

SoftphoneId SoftphoneEntry::id() const
{
    return idOf(object_, L"IdHigh", L"IdLow");
}

SoftphoneId SoftphoneHistoryItem::id() const
{
    return idOf(object_, historyIdHigh, historyIdLow);
}

Value SoftphoneHistoryItem::incoming() const
{
    return object_.get(L"Incoming");
}

Value SoftphoneHistoryItem::beginDate() const
{
    return object_.get(L"BeginDate");
}

Value SoftphoneHistoryItem::endDate() const
{
    return object_.get(L"EndDate");
}

Value SoftphoneHistoryItem::state() const
{
    return object_.get(L"State");
}

Value SoftphoneHistoryItem::acknowledged() const
{
    return object_.get(L"Acknowledged");
}

}

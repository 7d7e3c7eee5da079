#include "desk/softphone/records.h"

namespace desk::softphone {

using automation::server::readOnly;

const std::vector<MemberRow<UserObject>>& UserObject::members()
{
    using Self = UserObject;
    static const std::vector<MemberRow<Self>> rows{
        {L"FirstText", 2, readOnly, 0, 0,
         [](Self& self, const IncomingCall&) -> Value { return self.phone().contents.user.firstText; }},
        {L"SecondText", 3, readOnly, 0, 0,
         [](Self& self, const IncomingCall&) -> Value { return self.phone().contents.user.secondText; }},
    };
    return rows;
}

const std::vector<MemberRow<HistoryItem>>& HistoryItem::members()
{
    using Self = HistoryItem;
    static const std::vector<MemberRow<Self>> rows{
        {L"IdHigh", 1, readOnly, 0, 0, [](Self& self, const IncomingCall&) -> Value { return self.record.id.high; }},
        {L"IdLow", 2, readOnly, 0, 0, [](Self& self, const IncomingCall&) -> Value { return self.record.id.low; }},
        {L"Incoming", 3, readOnly, 0, 0, [](Self& self, const IncomingCall&) -> Value { return self.record.incoming; }},
        {L"Number", 4, readOnly, 0, 0,
         [](Self& self, const IncomingCall&) -> Value { return self.record.party.number; }},
        {L"LastName", 5, readOnly, 0, 0,
         [](Self& self, const IncomingCall&) -> Value { return self.record.party.lastName; }},
        {L"FirstName", 6, readOnly, 0, 0,
         [](Self& self, const IncomingCall&) -> Value { return self.record.party.firstName; }},
        {L"BeginDate", 7, readOnly, 0, 0,
         [](Self& self, const IncomingCall&) -> Value { return Value::date(self.record.begin); }},
        {L"EndDate", 8, readOnly, 0, 0,
         [](Self& self, const IncomingCall&) -> Value { return Value::date(self.record.end); }},
        {L"State", 9, readOnly, 0, 0, [](Self& self, const IncomingCall&) -> Value { return self.record.state; }},
        {L"Acknowledged", 10, readOnly, 0, 0,
         [](Self& self, const IncomingCall&) -> Value { return self.record.acknowledged; }},
    };
    return rows;
}

const std::vector<MemberRow<Entry>>& Entry::members()
{
    using Self = Entry;
    static const std::vector<MemberRow<Self>> rows{
        {L"IdHigh", 11, readOnly, 0, 0, [](Self& self, const IncomingCall&) -> Value { return self.record.id.high; }},
        {L"IdLow", 12, readOnly, 0, 0, [](Self& self, const IncomingCall&) -> Value { return self.record.id.low; }},
        {L"Number", 13, readOnly, 0, 0,
         [](Self& self, const IncomingCall&) -> Value { return self.record.party.number; }},
        {L"LastName", 14, readOnly, 0, 0,
         [](Self& self, const IncomingCall&) -> Value { return self.record.party.lastName; }},
        {L"FirstName", 15, readOnly, 0, 0,
         [](Self& self, const IncomingCall&) -> Value { return self.record.party.firstName; }},
    };
    return rows;
}

const std::vector<MemberRow<Call>>& Call::members()
{
    using Self = Call;
    static const std::vector<MemberRow<Self>> rows{
        {L"Number", 21, readOnly, 0, 0,
         [](Self& self, const IncomingCall&) -> Value { return self.record.party.number; }},
        {L"LastName", 22, readOnly, 0, 0,
         [](Self& self, const IncomingCall&) -> Value { return self.record.party.lastName; }},
        {L"FirstName", 23, readOnly, 0, 0,
         [](Self& self, const IncomingCall&) -> Value { return self.record.party.firstName; }},
        {L"Incoming", 24, readOnly, 0, 0,
         [](Self& self, const IncomingCall&) -> Value { return self.record.incoming; }},
        {L"DestinationNumber", 25, readOnly, 0, 0,
         [](Self& self, const IncomingCall&) -> Value { return self.record.destinationNumber; }},
    };
    return rows;
}

}

#include "desk/softphone/application.h"

namespace desk::softphone {

using automation::server::Exception;
using automation::server::make;
using automation::server::method;
using automation::server::readOnly;
using automation::server::readWrite;
using automation::server::valueOf;

namespace {

// Clients bound by number take an indexed member for the one or the other.
constexpr WORD methodOrProperty = method | readOnly;

std::int32_t countOf(std::size_t records, const std::optional<std::int32_t>& told)
{
    return told.value_or(static_cast<std::int32_t>(records));
}

template <class Object, class Record>
Value itemAt(Phone& phone, const std::vector<Record>& records, std::int32_t index)
{
    if (index < 0 || static_cast<std::size_t>(index) >= records.size())
        throw Exception{DISP_E_BADINDEX, L"Pavex", L"There is no record at index " + std::to_wstring(index) + L"."};
    return valueOf(make<Object>(phone, records[static_cast<std::size_t>(index)]));
}

template <class Object, class Record>
Value itemOf(Phone& phone, const Book<Record>& book, const IncomingCall& call)
{
    const Record* found = book.find({call.arguments.int32(0), call.arguments.int32(1)});
    return found ? valueOf(make<Object>(phone, *found)) : Value(automation::Object());
}

}

const std::vector<MemberRow<Line>>& Line::members()
{
    using Self = Line;
    static const std::vector<MemberRow<Self>> rows{
        {L"State", 1, readOnly, 0, 0, [](Self& self, const IncomingCall&) -> Value { return lineState(self.phone()); }},
    };
    return rows;
}

const std::vector<MemberRow<History>>& History::members()
{
    using Self = History;
    static const std::vector<MemberRow<Self>> rows{
        {L"Count", 1, readOnly, 0, 0,
         [](Self& self, const IncomingCall&) -> Value {
             const Phone& phone = self.phone();
             return countOf(phone.contents.history.records().size(), phone.historyCount);
         }},
        {L"Item", 3, methodOrProperty, 1, 1,
         [](Self& self, const IncomingCall& call) -> Value {
             Phone& phone = self.phone();
             return itemAt<HistoryItem>(phone, phone.contents.history.records(), call.arguments.int32(0));
         }},
        {L"Find", 4, methodOrProperty, 2, 2,
         [](Self& self, const IncomingCall& call) -> Value {
             return itemOf<HistoryItem>(self.phone(), self.phone().contents.history, call);
         }},
    };
    return rows;
}

const std::vector<MemberRow<AddressBook>>& AddressBook::members()
{
    using Self = AddressBook;
    static const std::vector<MemberRow<Self>> rows{
        {L"Count", 1, readOnly, 0, 0,
         [](Self& self, const IncomingCall&) -> Value {
             const Phone& phone = self.phone();
             return countOf(phone.contents.entries.records().size(), phone.addressBookCount);
         }},
        {L"Item", 3, methodOrProperty, 1, 1,
         [](Self& self, const IncomingCall& call) -> Value {
             Phone& phone = self.phone();
             return itemAt<Entry>(phone, phone.contents.entries.records(), call.arguments.int32(0));
         }},
        {L"Find", 4, methodOrProperty, 2, 2,
         [](Self& self, const IncomingCall& call) -> Value {
             return itemOf<Entry>(self.phone(), self.phone().contents.entries, call);
         }},
    };
    return rows;
}

Application::Application(Phone& phone)
    : EventObject(phone, L"Application", {applicationId, applicationClassId, applicationEventsId}),
      user(make<UserObject>(phone)), line(make<Line>(phone)), history(make<History>(phone)),
      addressBook(make<AddressBook>(phone))
{}

const std::vector<MemberRow<Application>>& Application::members()
{
    using Self = Application;
    static const std::vector<MemberRow<Self>> rows{
        {L"User", 9, readOnly, 0, 0, [](Self& self, const IncomingCall&) -> Value { return valueOf(self.user); }},
        {L"Line", 10, readOnly, 0, 0, [](Self& self, const IncomingCall&) -> Value { return valueOf(self.line); }},
        {L"History", 11, readOnly, 0, 0,
         [](Self& self, const IncomingCall&) -> Value { return valueOf(self.history); }},
        {L"AddressBook", 12, readOnly, 0, 0,
         [](Self& self, const IncomingCall&) -> Value { return valueOf(self.addressBook); }},
        {L"Attached", 14, readWrite, 0, 0,
         [](Self& self, const IncomingCall& call) -> Value {
             Phone& phone = self.phone();
             if (!call.isPut()) return phone.attached;
             phone.attached = call.arguments.isTrue(0);
             phone.tellChanged();
             return Value();
         }},
    };
    return rows;
}

std::wstring lineState(const Phone& phone)
{
    if (!phone.call) return L"Idle";
    return phone.call->incoming ? L"Incoming call" : L"Outgoing call";
}

}

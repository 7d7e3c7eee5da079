#include "convid/record_objects.h"

#include "automation/server/collection.h"

namespace convid {

using automation::Value;
namespace server = automation::server;

const std::vector<server::MemberRow<RecordObject>>& RecordObject::members()
{
    static const std::vector<server::MemberRow<RecordObject>> rows{
        {L"idOrvel", 1, server::readOnly, 0, 0,
         [](RecordObject& self, const server::IncomingCall&) -> Value { return self.record_->idOrvel; }},
        {L"idAppli", 2, server::readOnly, 0, 0,
         [](RecordObject& self, const server::IncomingCall&) -> Value { return self.record_->idAppli; }},
        {L"typApplication", 3, server::readOnly, 0, 0,
         [](RecordObject& self, const server::IncomingCall&) -> Value { return self.record_->typApplication; }},
    };
    return rows;
}

const std::vector<server::MemberRow<RecordCollection>>& RecordCollection::members()
{
    static const std::vector<server::MemberRow<RecordCollection>> rows{
        {L"Item", DISPID_VALUE, server::method | server::readOnly, 1, 1,
         [](RecordCollection& self, const server::IncomingCall& call) -> Value {
             return self.item(call.arguments.int32(0));
         }},
        {L"Count", 1, server::method | server::readOnly, 0, 0,
         [](RecordCollection& self, const server::IncomingCall&) -> Value {
             return static_cast<std::int32_t>(self.records_.size());
         }},
        {L"_NewEnum", DISPID_NEWENUM, server::method | server::readOnly, 0, 0,
         [](RecordCollection& self, const server::IncomingCall&) -> Value { return self.enumeration(); }},
    };
    return rows;
}

Value RecordCollection::item(std::int32_t number) const
{
    if (number < 1 || static_cast<std::size_t>(number) > records_.size()) throw server::Failure{DISP_E_BADINDEX};
    return server::valueOf(server::make<RecordObject>(store_, records_[static_cast<std::size_t>(number) - 1]));
}

Value RecordCollection::enumeration() const
{
    std::vector<Value> objects;
    objects.reserve(records_.size());
    for (const RecordPointer& record : records_)
        objects.push_back(server::valueOf(server::make<RecordObject>(store_, record)));
    return server::enumerationOf(std::move(objects));
}

}

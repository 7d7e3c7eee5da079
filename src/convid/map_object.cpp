#include "convid/map_object.h"

#include "convid/record_objects.h"
#include "convid/store_error.h"

namespace convid {

using automation::Value;
namespace server = automation::server;

namespace {

constexpr const wchar_t* errorSource = L"PavexConvId";

constexpr std::int32_t notMapped = 0;
constexpr std::int32_t mapped = 1;

}

// Runs a member; what the store refuses reaches the client as an automation
// exception with a description.
template <Value (MapObject::*Member)(const server::Arguments&)>
Value MapObject::answerWith(MapObject& self, const server::IncomingCall& call)
try {
    return (self.*Member)(call.arguments);
} catch (const StoreError& error) {
    throw server::Exception{error.code(), errorSource, error.description()};
}

const std::vector<server::MemberRow<MapObject>>& MapObject::members()
{
    static const std::vector<server::MemberRow<MapObject>> rows{
        {L"InsertId", 1, server::method, 4, 4, answerWith<&MapObject::insert>},
        {L"ConvertIdOrvel", 2, server::method, 4, 4, answerWith<&MapObject::convert>},
        {L"RemoveIdOrvel", 3, server::method, 2, 2, answerWith<&MapObject::remove>},
        {L"idCollection", 4, server::method | server::readOnly, 1, 1, answerWith<&MapObject::collection>},
        {L"StopOrvelConvertId", 5, server::method, 0, 0, answerWith<&MapObject::stop>},
    };
    return rows;
}

Value MapObject::insert(const server::Arguments& arguments)
{
    store_->insert({
        .idOrvel = arguments.text(1),
        .idAppli = arguments.text(0),
        .typApplication = arguments.int32(2),
        .collection = arguments.int32(3),
    });
    return Value();
}

// The caller says how much it has room for. A cut identifier would name
// nothing, or something else, and "not mapped" would make it copy the record
// once more: too little room is an error, and the arguments stay as they were.
Value MapObject::convert(const server::Arguments& arguments)
{
    const std::int32_t room = arguments.int32(2);
    const RecordPointer found = store_->find(arguments.text(0), arguments.int32(3));
    if (!found) return notMapped;
    const auto length = static_cast<std::int32_t>(found->idAppli.size());
    if (length > room)
        throw StoreError(HRESULT_FROM_WIN32(ERROR_MORE_DATA),
                         L"The groupware identifier has " + std::to_wstring(length) +
                             L" characters, there is room for " + std::to_wstring(room));
    arguments.write({{1, found->idAppli}, {2, length}});
    return mapped;
}

Value MapObject::remove(const server::Arguments& arguments)
{
    store_->remove(arguments.text(0), arguments.int32(1));
    return Value();
}

Value MapObject::collection(const server::Arguments& arguments)
{
    return server::valueOf(server::make<RecordCollection>(store_, store_->records(arguments.int32(0))));
}

Value MapObject::stop(const server::Arguments&)
{
    store_->close();
    return Value();
}

}

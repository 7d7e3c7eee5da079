// The automation object "PavexConvId.OrvelConvertId". All objects of the
// process work on one store.
#pragma once

#include "convid/identifier_store.h"

#include "automation/server/dispatch.h"

#include <memory>
#include <vector>

namespace convid {

class MapObject final : public automation::server::TableDispatch<MapObject> {
public:
    explicit MapObject(std::shared_ptr<IdentifierStore> store) : store_(std::move(store)) {}

    static const std::vector<automation::server::MemberRow<MapObject>>& members();

private:
    automation::Value insert(const automation::server::Arguments& arguments);
    automation::Value convert(const automation::server::Arguments& arguments);
    automation::Value remove(const automation::server::Arguments& arguments);
    automation::Value collection(const automation::server::Arguments& arguments);
    automation::Value stop(const automation::server::Arguments& arguments);

    template <automation::Value (MapObject::*Member)(const automation::server::Arguments&)>
    static automation::Value answerWith(MapObject& self, const automation::server::IncomingCall& call);

    const std::shared_ptr<IdentifierStore> store_;
};

}

// What idCollection hands out: a collection of records as they were when it
// was asked for. Removing records meanwhile does not disturb it.
#pragma once

#include "convid/record.h"

#include "automation/server/dispatch.h"

#include <memory>
#include <vector>

namespace convid {

class IdentifierStore;

// One record: idOrvel, idAppli, typApplication.
class RecordObject final : public automation::server::TableDispatch<RecordObject> {
public:
    // `store` is held so that the process stays as long as any object of it.
    RecordObject(std::shared_ptr<IdentifierStore> store, RecordPointer record)
        : store_(std::move(store)), record_(std::move(record))
    {}

    static const std::vector<automation::server::MemberRow<RecordObject>>& members();

private:
    const std::shared_ptr<IdentifierStore> store_;
    const RecordPointer record_;
};

// Count, Item (from 1 on) and the enumeration of "For Each".
class RecordCollection final : public automation::server::TableDispatch<RecordCollection> {
public:
    RecordCollection(std::shared_ptr<IdentifierStore> store, std::vector<RecordPointer> records)
        : store_(std::move(store)), records_(std::move(records))
    {}

    static const std::vector<automation::server::MemberRow<RecordCollection>>& members();

private:
    automation::Value item(std::int32_t number) const;
    automation::Value enumeration() const;

    const std::shared_ptr<IdentifierStore> store_;
    const std::vector<RecordPointer> records_;
};

}

#include "convid/record_index.h"

namespace convid {

std::size_t RecordIndex::hashOf(const Key& key) noexcept
{
    // The applications are few and small numbers: spread over the whole width
    // they do not fall onto neighbouring identifiers.
    return std::hash<std::wstring_view>()(key.idOrvel) ^ (static_cast<std::uint32_t>(key.typApplication) * 0x9E3779B1u);
}

void RecordIndex::put(IdentifierRecord record)
{
    // Everything that may fail comes before the first change.
    auto added = std::make_shared<const IdentifierRecord>(std::move(record));
    const auto found = records_.find(keyOf(added));
    if (found == records_.end()) {
        records_.insert(std::move(added));
        return;
    }
    auto node = records_.extract(found);
    node.value() = std::move(added);
    records_.insert(std::move(node));
}

bool RecordIndex::remove(std::wstring_view idOrvel, std::int32_t typApplication)
{
    const auto found = records_.find(Key{idOrvel, typApplication});
    if (found == records_.end()) return false;
    records_.erase(found);
    return true;
}

RecordPointer RecordIndex::find(std::wstring_view idOrvel, std::int32_t typApplication) const
{
    const auto found = records_.find(Key{idOrvel, typApplication});
    return found == records_.end() ? RecordPointer() : *found;
}

std::vector<RecordPointer> RecordIndex::ofCollection(std::int32_t collection) const
{
    std::vector<RecordPointer> result;
    for (const RecordPointer& record : records_)
        if (record->collection == collection) result.push_back(record);
    return result;
}

}

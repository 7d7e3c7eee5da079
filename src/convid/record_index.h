// The records in memory, found by softphone identifier and application.
#pragma once

#include "convid/record.h"

#include <string_view>
#include <unordered_set>
#include <vector>

namespace convid {

class RecordIndex {
public:
    // Makes room, so that loading a store does not rebuild the table again and again.
    void reserve(std::size_t records) { records_.reserve(records); }

    // Adds the record; it replaces one of the same identifier and application.
    void put(IdentifierRecord record);

    // False when there was none.
    bool remove(std::wstring_view idOrvel, std::int32_t typApplication);

    // Empty when there is none.
    RecordPointer find(std::wstring_view idOrvel, std::int32_t typApplication) const;

    // All of one collection, in no particular order.
    std::vector<RecordPointer> ofCollection(std::int32_t collection) const;

    std::size_t size() const noexcept { return records_.size(); }
    auto begin() const noexcept { return records_.begin(); }
    auto end() const noexcept { return records_.end(); }

private:
    struct Key {
        std::wstring_view idOrvel;
        std::int32_t typApplication;

        bool operator==(const Key&) const = default;
    };

    static Key keyOf(const Key& key) { return key; }
    static Key keyOf(const RecordPointer& record) { return {record->idOrvel, record->typApplication}; }

    struct Hash {
        using is_transparent = void;
        std::size_t operator()(const auto& record) const noexcept { return hashOf(keyOf(record)); }
    };

    struct SameKey {
        using is_transparent = void;
        bool operator()(const auto& a, const auto& b) const noexcept { return keyOf(a) == keyOf(b); }
    };

    static std::size_t hashOf(const Key& key) noexcept;

    std::unordered_set<RecordPointer, Hash, SameKey> records_;
};

}

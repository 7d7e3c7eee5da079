// What the softphone knows: its user, its call history and its address book.
#pragma once

#include <windows.h>
#include <oaidl.h>

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace desk::softphone {

// A record's identifier, in its text form 12.3405. The pair 0.0 is never given
// to a record: it asks for the next free one.
struct RecordId {
    std::int32_t high = 0;
    std::int32_t low = 0;

    friend bool operator==(const RecordId&, const RecordId&) = default;
};

std::wstring textOf(RecordId id);

// Throws std::runtime_error when the text has another form.
RecordId recordIdOf(std::wstring_view text);

struct Party {
    std::wstring number;
    std::wstring lastName;
    std::wstring firstName;
};

struct User {
    std::wstring firstText;
    std::wstring secondText;
    std::wstring number; // the window shows it; automation clients do not see it
};

struct HistoryRecord {
    RecordId id;
    Party party;
    bool incoming = false;
    DATE begin = 0;
    DATE end = 0;
    std::int16_t state = 0;
    std::int16_t acknowledged = 0;
};

struct EntryRecord {
    RecordId id;
    Party party;
};

struct CallRecord {
    Party party;
    bool incoming = false;
    std::wstring destinationNumber;
};

// Records in the order in which they came. The identifiers that the softphone
// gives by itself have a first half of each book's own: none stands for two records.
template <class Record>
class Book {
public:
    explicit Book(std::int32_t ownHigh) noexcept : ownHigh_(ownHigh) {}

    const std::vector<Record>& records() const noexcept { return records_; }

    // The record as kept: with an identifier. Throws std::runtime_error when
    // its identifier is in use.
    const Record& add(Record record);

    bool remove(RecordId id);
    const Record* find(RecordId id) const;

private:
    std::int32_t ownHigh_;
    std::vector<Record> records_;
    std::unordered_map<std::uint64_t, std::size_t> positions_; // by identifier
    std::int32_t nextLow_ = 1; // never goes back: an identifier is not given twice
};

extern template class Book<HistoryRecord>; // in contents.cpp
extern template class Book<EntryRecord>;

struct Contents {
    User user;
    Book<HistoryRecord> history{1};
    Book<EntryRecord> entries{2};
};

}

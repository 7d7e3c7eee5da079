// The bytes of the store's file: its header and its entries. Every number is
// little-endian; docs/identifier-map.md describes them to the byte.
#pragma once

#include "convid/record.h"

#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

namespace convid {

using Bytes = std::vector<std::uint8_t>;
using ByteView = std::span<const std::uint8_t>;

inline constexpr std::size_t headerSize = 16;
inline constexpr std::size_t entryHeadSize = 8;
inline constexpr std::size_t entryTailSize = 4;

// The header of a store of this program's version.
Bytes fileHeader();

enum class HeaderState {
    good,
    newer,   // sound, but of a version that this program does not know
    damaged,
};

// `header` has headerSize bytes.
HeaderState examineHeader(ByteView header);

// Entries complete with head and checksum, ready to be appended.
Bytes insertEntry(const IdentifierRecord& record);
Bytes removeEntry(std::wstring_view idOrvel, std::int32_t typApplication);

// The size of the whole entry that a head (entryHeadSize bytes) announces; 0
// when the head is damaged.
std::size_t announcedSize(ByteView head);

struct LogEntry {
    bool isRemoval = false;
    IdentifierRecord record; // of a removal only the identifier and the application
};

// Reads one whole entry; false when it is damaged.
bool readEntry(ByteView bytes, LogEntry& entry);

}

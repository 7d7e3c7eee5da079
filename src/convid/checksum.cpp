#include "convid/checksum.h"

#include <array>

namespace convid {

namespace {

// Four tables, so that four bytes go through at once: a whole store is checked
// each time that it is opened.
using Tables = std::array<std::array<std::uint32_t, 256>, 4>;

constexpr Tables makeTables()
{
    Tables tables{};
    for (std::uint32_t byte = 0; byte < 256; ++byte) {
        std::uint32_t value = byte;
        for (int bit = 0; bit < 8; ++bit) value = (value >> 1) ^ ((value & 1) ? 0xEDB88320u : 0u);
        tables[0][byte] = value;
    }
    for (std::size_t table = 1; table < tables.size(); ++table)
        for (std::size_t byte = 0; byte < 256; ++byte) {
            const std::uint32_t before = tables[table - 1][byte];
            tables[table][byte] = (before >> 8) ^ tables[0][before & 0xFF];
        }
    return tables;
}

constexpr Tables tables = makeTables();

}

std::uint32_t crc32(std::span<const std::uint8_t> bytes) noexcept
{
    std::uint32_t value = 0xFFFFFFFFu;
    while (bytes.size() >= 4) {
        value ^= static_cast<std::uint32_t>(bytes[0]) | static_cast<std::uint32_t>(bytes[1]) << 8 |
                 static_cast<std::uint32_t>(bytes[2]) << 16 | static_cast<std::uint32_t>(bytes[3]) << 24;
        value = tables[3][value & 0xFF] ^ tables[2][(value >> 8) & 0xFF] ^ tables[1][(value >> 16) & 0xFF] ^
                tables[0][value >> 24];
        bytes = bytes.subspan(4);
    }
    for (const std::uint8_t byte : bytes) value = (value >> 8) ^ tables[0][(value ^ byte) & 0xFF];
    return ~value;
}

}

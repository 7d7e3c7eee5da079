#include "convid/checksum.h"

#include <cstring>

namespace convid {

namespace {

// Eight tables, so that eight bytes go through at once: a whole store is
// checked each time that it is opened, and its checksums are half of that work.
struct Tables {
    std::uint32_t entry[8][256];
};

constexpr Tables makeTables()
{
    Tables tables{};
    for (std::uint32_t byte = 0; byte < 256; ++byte) {
        std::uint32_t value = byte;
        for (int bit = 0; bit < 8; ++bit) value = (value >> 1) ^ ((value & 1) ? 0xEDB88320u : 0u);
        tables.entry[0][byte] = value;
    }
    for (int table = 1; table < 8; ++table)
        for (int byte = 0; byte < 256; ++byte) {
            const std::uint32_t before = tables.entry[table - 1][byte];
            tables.entry[table][byte] = (before >> 8) ^ tables.entry[0][before & 0xFF];
        }
    return tables;
}

constexpr Tables tables = makeTables();

std::uint32_t number32(const std::uint8_t* place) noexcept
{
    std::uint32_t number;
    std::memcpy(&number, place, sizeof number);
    return number;
}

}

std::uint32_t crc32(std::span<const std::uint8_t> bytes) noexcept
{
    const auto& entry = tables.entry;
    const std::uint8_t* place = bytes.data();
    std::size_t left = bytes.size();
    std::uint32_t value = 0xFFFFFFFFu;
    for (; left >= 8; left -= 8, place += 8) {
        const std::uint32_t first = value ^ number32(place);
        const std::uint32_t second = number32(place + 4);
        value = entry[7][first & 0xFF] ^ entry[6][(first >> 8) & 0xFF] ^ entry[5][(first >> 16) & 0xFF] ^
                entry[4][first >> 24] ^ entry[3][second & 0xFF] ^ entry[2][(second >> 8) & 0xFF] ^
                entry[1][(second >> 16) & 0xFF] ^ entry[0][second >> 24];
    }
    for (; left > 0; --left, ++place) value = (value >> 8) ^ entry[0][(value ^ *place) & 0xFF];
    return ~value;
}

}

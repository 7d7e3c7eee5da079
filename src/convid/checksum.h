// The checksum of the store's file: CRC-32 as Ethernet and ZIP files use it
// (reflected polynomial EDB88320, start and final inversion FFFFFFFF).
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace convid {

std::uint32_t crc32(std::span<const std::uint8_t> bytes) noexcept;

}

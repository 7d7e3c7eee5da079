#include "desk/bench/map_file.h"

#include <array>
#include <cstdint>
#include <cwchar>
#include <string_view>

namespace desk::bench {

namespace {

constexpr std::array<std::uint32_t, 256> checksumSteps()
{
    std::array<std::uint32_t, 256> steps{};
    for (std::uint32_t byte = 0; byte < 256; ++byte) {
        std::uint32_t step = byte;
        for (int bit = 0; bit < 8; ++bit) step = step & 1 ? step >> 1 ^ 0xEDB88320u : step >> 1;
        steps[byte] = step;
    }
    return steps;
}

std::uint32_t checksum(std::string_view bytes)
{
    static constexpr auto steps = checksumSteps();
    std::uint32_t sum = 0xFFFFFFFFu;
    for (const char byte : bytes) sum = sum >> 8 ^ steps[(sum ^ static_cast<std::uint8_t>(byte)) & 0xFF];
    return ~sum;
}

void addNumber(std::string& bytes, std::uint32_t number, int size)
{
    for (int place = 0; place < size; ++place) bytes += static_cast<char>(number >> 8 * place & 0xFF);
}

void addText(std::string& bytes, std::wstring_view text)
{
    addNumber(bytes, static_cast<std::uint32_t>(text.size()), 2);
    for (const wchar_t unit : text) addNumber(bytes, unit, 2);
}

void addEntry(std::string& bytes, const std::wstring& idOrvel, const std::wstring& idAppli)
{
    std::string payload(1, '\1'); // an insertion
    addNumber(payload, 0, 4);     // of Outlook
    addNumber(payload, 0, 4);     // in the history
    addText(payload, idOrvel);
    addText(payload, idAppli);
    std::string length;
    addNumber(length, static_cast<std::uint32_t>(payload.size()), 4);
    bytes += length;
    addNumber(bytes, checksum(length), 4);
    bytes += payload;
    addNumber(bytes, checksum(payload), 4);
}

}

std::wstring mappedTo(int n)
{
    // As long as Outlook's identifiers.
    wchar_t text[64];
    std::swprintf(text, std::size(text), L"00000000A1B2C3D4E5F60718293A4B5C6D7E8F90%08X", n);
    return text;
}

std::string mapFile(int records)
{
    std::string bytes = "IDMAP\r\n\x1A";
    addNumber(bytes, 1, 4);
    addNumber(bytes, checksum(bytes), 4);
    for (int n = 0; n < records; ++n) addEntry(bytes, L"3." + std::to_wstring(n), mappedTo(n));
    return bytes;
}

}

#include "convid/log_entry.h"

#include "convid/checksum.h"

#include <algorithm>
#include <cstring>

namespace convid {

namespace {

static_assert(sizeof(wchar_t) == 2, "identifiers are written as UTF-16");

// A transfer in text mode would change the line end and the end-of-file character,
// and so show itself.
constexpr std::uint8_t magic[8] = {'I', 'D', 'M', 'A', 'P', '\r', '\n', 0x1A};
constexpr std::uint32_t version = 1;

constexpr std::uint8_t insertType = 1;
constexpr std::uint8_t removeType = 2;

constexpr std::size_t minPayloadSize = 1 + 4 + 2;                                     // a removal's fixed part
constexpr std::size_t maxPayloadSize = 1 + 4 + 4 + 2 * (2 + 2 * maxIdentifierLength); // an insertion's, filled

template <class Number>
void add(Bytes& bytes, Number number)
{
    std::uint8_t raw[sizeof number];
    std::memcpy(raw, &number, sizeof number);
    bytes.insert(bytes.end(), raw, raw + sizeof number);
}

void addText(Bytes& bytes, std::wstring_view text)
{
    add(bytes, static_cast<std::uint16_t>(text.size()));
    const auto* const raw = reinterpret_cast<const std::uint8_t*>(text.data());
    bytes.insert(bytes.end(), raw, raw + text.size() * sizeof(wchar_t));
}

std::uint32_t number32(ByteView bytes)
{
    std::uint32_t number;
    std::memcpy(&number, bytes.data(), sizeof number);
    return number;
}

// Takes fields off the front of a payload; a field that is not there makes the
// whole payload unsound.
class Payload {
public:
    explicit Payload(ByteView bytes) : left_(bytes) {}

    template <class Number>
    Number number()
    {
        Number result{};
        const ByteView bytes = take(sizeof result);
        if (sound_) std::memcpy(&result, bytes.data(), sizeof result);
        return result;
    }

    std::wstring text()
    {
        const std::size_t length = number<std::uint16_t>();
        std::wstring result;
        const ByteView bytes = take(length * sizeof(wchar_t));
        if (!sound_ || length == 0) return result;
        result.resize(length);
        std::memcpy(result.data(), bytes.data(), bytes.size());
        return result;
    }

    bool isSoundAndEmpty() const { return sound_ && left_.empty(); }

private:
    ByteView take(std::size_t size)
    {
        sound_ = sound_ && size <= left_.size();
        if (!sound_) return {};
        const ByteView taken = left_.first(size);
        left_ = left_.subspan(size);
        return taken;
    }

    ByteView left_;
    bool sound_ = true;
};

// Leaves room for the head, which is known only when the payload is.
Bytes beginEntry(std::uint8_t type, std::int32_t typApplication)
{
    Bytes entry(entryHeadSize);
    add(entry, type);
    add(entry, typApplication);
    return entry;
}

Bytes endEntry(Bytes entry)
{
    const ByteView payload = ByteView(entry).subspan(entryHeadSize);
    const std::uint32_t check = crc32(payload);
    const auto length = static_cast<std::uint32_t>(payload.size());
    std::memcpy(entry.data(), &length, sizeof length);
    const std::uint32_t headCheck = crc32(ByteView(entry).first(sizeof length));
    std::memcpy(entry.data() + sizeof length, &headCheck, sizeof headCheck);
    add(entry, check);
    return entry;
}

}

Bytes fileHeader()
{
    Bytes header(std::begin(magic), std::end(magic));
    add(header, version);
    add(header, crc32(header));
    return header;
}

HeaderState examineHeader(ByteView header)
{
    const bool sound = std::equal(std::begin(magic), std::end(magic), header.begin()) &&
                       number32(header.subspan(12)) == crc32(header.first(12));
    if (!sound) return HeaderState::damaged;
    return number32(header.subspan(sizeof magic)) == version ? HeaderState::good : HeaderState::newer;
}

Bytes insertEntry(const IdentifierRecord& record)
{
    Bytes entry = beginEntry(insertType, record.typApplication);
    add(entry, record.collection);
    addText(entry, record.idOrvel);
    addText(entry, record.idAppli);
    return endEntry(std::move(entry));
}

Bytes removeEntry(std::wstring_view idOrvel, std::int32_t typApplication)
{
    Bytes entry = beginEntry(removeType, typApplication);
    addText(entry, idOrvel);
    return endEntry(std::move(entry));
}

std::size_t announcedSize(ByteView head)
{
    const std::uint32_t length = number32(head);
    if (length < minPayloadSize || length > maxPayloadSize) return 0;
    if (number32(head.subspan(sizeof length)) != crc32(head.first(sizeof length))) return 0;
    return entryHeadSize + length + entryTailSize;
}

bool readEntry(ByteView bytes, LogEntry& entry)
{
    const ByteView payload = bytes.subspan(entryHeadSize, bytes.size() - entryHeadSize - entryTailSize);
    if (number32(bytes.last(entryTailSize)) != crc32(payload)) return false;

    Payload fields(payload);
    const auto type = fields.number<std::uint8_t>();
    if (type != insertType && type != removeType) return false;
    entry.isRemoval = type == removeType;
    entry.record.typApplication = fields.number<std::int32_t>();
    if (!entry.isRemoval) entry.record.collection = fields.number<std::int32_t>();
    entry.record.idOrvel = fields.text();
    if (!entry.isRemoval) entry.record.idAppli = fields.text();
    return fields.isSoundAndEmpty();
}

}

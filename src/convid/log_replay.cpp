#include "convid/log_replay.h"

#include "convid/store_error.h"

#include <algorithm>

namespace convid {

namespace {

// Looks at the file through a large block, so that small entries cost no call
// to the system each.
class BlockReader {
public:
    explicit BlockReader(const LogFile& file) : file_(file), size_(file.size()) {}

    std::uint64_t size() const noexcept { return size_; }

    // The bytes from `offset` on, fewer than `length` only at the file's end.
    ByteView at(std::uint64_t offset, std::size_t length)
    {
        length = static_cast<std::size_t>(std::min<std::uint64_t>(length, size_ - offset));
        if (offset < start_ || offset + length > start_ + block_.size()) {
            block_.resize(static_cast<std::size_t>(std::min<std::uint64_t>(blockSize, size_ - offset)));
            start_ = offset;
            block_.resize(file_.read(offset, block_));
            length = std::min(length, block_.size());
        }
        return ByteView(block_).subspan(static_cast<std::size_t>(offset - start_), length);
    }

private:
    static constexpr std::size_t blockSize = 1 << 20; // many times the largest entry

    const LogFile& file_;
    const std::uint64_t size_;
    std::uint64_t start_ = 0;
    Bytes block_;
};

enum class EntryState { good, unfinished, bad };

// Reads the entry at `offset`; `size` is set for a good one.
EntryState entryAt(BlockReader& reader, std::uint64_t offset, LogEntry& entry, std::size_t& size)
{
    const ByteView head = reader.at(offset, entryHeadSize);
    if (head.size() < entryHeadSize) return EntryState::unfinished;
    size = announcedSize(head);
    if (size == 0) return EntryState::bad;
    // The head has a checksum of its own: a damaged length cannot pretend that
    // all the entries behind it are the rest of an unfinished one.
    const ByteView bytes = reader.at(offset, size);
    if (bytes.size() < size) return EntryState::unfinished;
    return readEntry(bytes, entry) ? EntryState::good : EntryState::bad;
}

// A power failure may leave a file with its new size and nothing written.
bool onlyZeros(BlockReader& reader, std::uint64_t offset)
{
    while (offset < reader.size()) {
        const ByteView bytes = reader.at(offset, 4096);
        if (bytes.empty() || std::ranges::any_of(bytes, [](std::uint8_t byte) { return byte != 0; })) return false;
        offset += bytes.size();
    }
    return true;
}

void apply(LogEntry& entry, RecordIndex& index)
{
    if (entry.isRemoval) index.remove(entry.record.idOrvel, entry.record.typApplication);
    else index.put(std::move(entry.record));
}

void replayEntries(BlockReader& reader, std::uint64_t offset, Replay& result, RecordIndex& index)
{
    LogEntry entry;
    std::size_t size = 0;
    while (offset < reader.size()) {
        switch (entryAt(reader, offset, entry, size)) {
        case EntryState::good:
            apply(entry, index);
            ++result.entries;
            offset += size;
            result.end = offset;
            break;
        case EntryState::unfinished: result.torn = true; return;
        case EntryState::bad:
            if (!result.damaged && onlyZeros(reader, offset)) {
                result.torn = true;
                return;
            }
            result.damaged = true;
            ++offset;
            break;
        }
    }
}

bool beginsLikeHeader(ByteView bytes)
{
    const Bytes header = fileHeader();
    return bytes.size() < headerSize && std::equal(bytes.begin(), bytes.end(), header.begin());
}

}

Replay replay(const LogFile& file, RecordIndex& index)
{
    Replay result;
    BlockReader reader(file);
    const ByteView header = reader.at(0, headerSize);
    if (beginsLikeHeader(header)) {
        result.blank = true;
        return result;
    }
    const HeaderState state = header.size() < headerSize ? HeaderState::damaged : examineHeader(header);
    if (state == HeaderState::newer)
        throw StoreError(HRESULT_FROM_WIN32(ERROR_UNKNOWN_REVISION),
                         L"The identifier store was written by a newer version of this program");
    result.damaged = state == HeaderState::damaged;
    result.end = headerSize;
    index.reserve(static_cast<std::size_t>(reader.size() / 256));
    replayEntries(reader, result.damaged ? 0 : headerSize, result, index);
    return result;
}

}

// The identifier map: records in memory, every change in an append-only file
// and on the disk before the operation returns.
#pragma once

#include "automation/milliseconds.h"
#include "convid/log_file.h"
#include "convid/record_index.h"

#include <optional>

namespace convid {

struct StoreOptions {
    // The file is written anew when this many of its entries are dead, and more
    // than half of them all.
    std::size_t compactionFloor = 1'000;
    // How long a file in use by another program is tried again, in milliseconds.
    automation::Milliseconds timeout = 2'000;
};

// One thread uses it. All operations open the file when it is closed; all
// throw StoreError when the file does not allow them, and have then changed
// nothing, neither in memory nor in the file.
class IdentifierStore {
public:
    explicit IdentifierStore(std::wstring path, StoreOptions options = {});

    // A record of the same identifier and application is replaced, whichever
    // collection it is in. Empty or overlong identifiers are refused.
    void insert(const IdentifierRecord& record);

    // Empty when there is none.
    RecordPointer find(std::wstring_view idOrvel, std::int32_t typApplication);

    // No failure when there is none.
    void remove(std::wstring_view idOrvel, std::int32_t typApplication);

    // The records of a collection as they are now, in no particular order.
    std::vector<RecordPointer> records(std::int32_t collection);

    // Closes the file and frees the memory; everything is on the disk already.
    void close() noexcept { open_.reset(); }

private:
    struct OpenStore {
        LogFile file;
        std::uint64_t end;   // of the last entry
        std::size_t entries; // in the file, dead ones included
        RecordIndex index;
    };

    OpenStore& ensureOpen();
    OpenStore load() const;
    void repair(OpenStore& store, bool damaged) const;
    void append(OpenStore& store, const Bytes& entry);
    void rollBack(OpenStore& store) noexcept;
    void compactWhenWorthwhile();
    void compact();

    const std::wstring path_;
    const StoreOptions options_;
    std::size_t compactionThreshold_; // dead entries
    std::optional<OpenStore> open_;
};

}

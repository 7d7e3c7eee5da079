#include "convid/identifier_store.h"

#include "convid/log_replay.h"
#include "convid/log_rewrite.h"
#include "convid/store_error.h"

#include <new>

namespace convid {

namespace {

void checkIdentifier(const std::wstring& identifier, const wchar_t* name)
{
    if (identifier.empty()) throw StoreError(E_INVALIDARG, std::wstring(name) + L" is empty");
    if (identifier.size() > maxIdentifierLength)
        throw StoreError(E_INVALIDARG, std::wstring(name) + L" is longer than " + std::to_wstring(maxIdentifierLength) +
                                           L" characters");
}

// Only the last folder: the one above it is the system's. When it cannot be
// made, opening the file fails and says why.
void makeFolderOf(const std::wstring& path)
{
    CreateDirectoryW(path.substr(0, path.find_last_of(L"\\/")).c_str(), nullptr);
}

}

IdentifierStore::IdentifierStore(std::wstring path, StoreOptions options)
    : path_(std::move(path)), options_(options), compactionThreshold_(options.compactionFloor)
{}

void IdentifierStore::insert(const IdentifierRecord& record)
{
    checkIdentifier(record.idOrvel, L"idOrvel");
    checkIdentifier(record.idAppli, L"idAppli");
    OpenStore& store = ensureOpen();
    const RecordPointer present = store.index.find(record.idOrvel, record.typApplication);
    if (present && *present == record) return;

    const Bytes entry = insertEntry(record);
    append(store, entry);
    try {
        store.index.put(record);
    } catch (const std::bad_alloc&) {
        rollBack(store);
        throw;
    }
    store.end += entry.size();
    ++store.entries;
    compactWhenWorthwhile();
}

RecordPointer IdentifierStore::find(std::wstring_view idOrvel, std::int32_t typApplication)
{
    return ensureOpen().index.find(idOrvel, typApplication);
}

void IdentifierStore::remove(std::wstring_view idOrvel, std::int32_t typApplication)
{
    OpenStore& store = ensureOpen();
    if (!store.index.find(idOrvel, typApplication)) return;
    const Bytes entry = removeEntry(idOrvel, typApplication);
    append(store, entry);
    store.index.remove(idOrvel, typApplication);
    store.end += entry.size();
    ++store.entries;
    compactWhenWorthwhile();
}

std::vector<RecordPointer> IdentifierStore::records(std::int32_t collection)
{
    return ensureOpen().index.ofCollection(collection);
}

IdentifierStore::OpenStore& IdentifierStore::ensureOpen()
{
    if (!open_) open_.emplace(load());
    return *open_;
}

IdentifierStore::OpenStore IdentifierStore::load() const
{
    makeFolderOf(path_);
    recoverReplacement(path_, options_.timeout);
    OpenStore store{LogFile(path_, OPEN_ALWAYS, options_.timeout), 0, 0, {}};
    const Replay found = replay(store.file, store.index);
    // A replacement beside the store belongs to a rewriting that was cut short.
    // Beside a damaged store it may know what that one has lost.
    if (found.damaged) setReplacementAside(path_);
    else dropReplacement(path_);
    store.end = found.end;
    store.entries = found.entries;
    if (found.blank) {
        const Bytes header = fileHeader();
        store.file.write(0, header);
        store.file.flush();
        store.end = header.size();
    } else if (found.torn || found.damaged) {
        repair(store, found.damaged);
    }
    return store;
}

void IdentifierStore::repair(OpenStore& store, bool damaged) const
{
    if (!damaged) {
        store.file.truncate(store.end);
        store.file.flush();
        return;
    }
    writeReplacement(path_, store.index);
    std::wstring kept;
    try {
        kept = setAside(path_);
        {
            const LogFile letGo = std::move(store.file);
        }
        moveReplacementIntoPlace(path_, options_.timeout);
    } catch (const StoreError&) {
        dropReplacement(path_);
        // The damaged file is still in its place: the next try keeps it then.
        if (!kept.empty() && presenceOf(path_) == Presence::there) DeleteFileW(kept.c_str());
        throw;
    }
    store.file = LogFile(path_, OPEN_EXISTING, options_.timeout);
    store.end = store.file.size();
    store.entries = store.index.size();
}

void IdentifierStore::append(OpenStore& store, const Bytes& entry)
try {
    store.file.write(store.end, entry);
    store.file.flush();
} catch (const StoreError&) {
    rollBack(store);
    throw;
}

// An operation that is answered as failed must not come to life later.
void IdentifierStore::rollBack(OpenStore& store) noexcept
try {
    store.file.truncate(store.end);
    store.file.flush();
} catch (const StoreError&) {
    // What the file holds is unknown now. Memory follows it: the next
    // operation reads it again.
    close();
}

void IdentifierStore::compactWhenWorthwhile()
{
    const std::size_t live = open_->index.size();
    const std::size_t dead = open_->entries - live;
    if (dead < compactionThreshold_ || dead <= live) return;
    try {
        compact();
        compactionThreshold_ = options_.compactionFloor;
    } catch (const StoreError& error) {
        // The change itself is safe in the old file. Trying again at each
        // change would make every one of them slow.
        compactionThreshold_ = dead * 2;
        OutputDebugStringW((L"PavexConvId: " + error.description() + L"\n").c_str());
    } catch (const std::bad_alloc&) {
        compactionThreshold_ = dead * 2;
    }
}

void IdentifierStore::compact()
{
    OpenStore& store = *open_;
    writeReplacement(path_, store.index);
    try {
        // Windows replaces no file that is open. Whoever opens it in between
        // finds all records, in the old file or in the new one.
        {
            const LogFile letGo = std::move(store.file);
        }
        moveReplacementIntoPlace(path_, options_.timeout);
        store.file = LogFile(path_, OPEN_EXISTING, options_.timeout);
        store.end = store.file.size();
        store.entries = store.index.size();
    } catch (const std::exception&) {
        close();
        throw;
    }
}

}

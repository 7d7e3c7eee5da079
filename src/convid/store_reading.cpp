#include "convid/store_reading.h"

#include "automation/milliseconds.h"
#include "automation/owners.h"
#include "convid/log_replay.h"
#include "convid/log_rewrite.h"
#include "convid/store_error.h"

namespace convid {

namespace {

constexpr automation::Milliseconds timeout = 500; // for a file that somebody holds for a moment
constexpr int maxAttempts = 3;     // at a file that seems unfinished
constexpr automation::Milliseconds retryDelay = 100;

StoreState stateOf(const Replay& found)
{
    if (found.blank) return StoreState::blank;
    if (found.damaged) return StoreState::damaged;
    return found.torn ? StoreState::unfinished : StoreState::sound;
}

void readRecords(const std::wstring& path, StoreReading& reading)
{
    RecordIndex index;
    reading.state = stateOf(replay(LogFile::openForReading(path, timeout), index));
    reading.records.assign(index.begin(), index.end());
}

std::size_t damagedCopiesOf(const std::wstring& path)
{
    WIN32_FIND_DATAW found;
    const std::wstring pattern = path + L".damaged-*";
    const auto search = automation::ownedIfValid<automation::FileSearch>(FindFirstFileW(pattern.c_str(), &found));
    if (!search) return 0;
    std::size_t count = 1;
    while (FindNextFileW(search.get(), &found)) ++count;
    return count;
}

// An empty store counts as missing to the map server, which then looks for a replacement.
bool isMissing(const std::wstring& path)
{
    return GetFileAttributesW(path.c_str()) == INVALID_FILE_ATTRIBUTES && presenceOf(path) == Presence::missing;
}

}

StoreReading readStore(const std::wstring& path)
{
    StoreReading reading;
    reading.hasReplacement = presenceOf(path + L".new") == Presence::there;
    reading.damagedCopies = damagedCopiesOf(path);
    if (isMissing(path)) return reading;
    try {
        readRecords(path, reading);
        for (int look = 1; look < maxAttempts && reading.state == StoreState::unfinished; ++look) {
            Sleep(retryDelay);
            readRecords(path, reading);
        }
    } catch (const StoreError& error) {
        const bool isNewer = error.code() == HRESULT_FROM_WIN32(ERROR_UNKNOWN_REVISION);
        reading.state = isNewer ? StoreState::newer : StoreState::unreadable;
        reading.failure = static_cast<DWORD>(HRESULT_CODE(error.code()));
    }
    return reading;
}

}

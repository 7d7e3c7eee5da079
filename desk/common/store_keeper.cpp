#include "desk/common/store_keeper.h"

#include "desk/common/store_file.h"

#include <algorithm>

namespace desk {

void StoreKeeper::load(Partner& partner) const
try {
    partner.load(readStore(path_));
} catch (const std::runtime_error& error) {
    throw BadStore(error.what());
}

void StoreKeeper::changed()
{
    if (dirty_) return;
    dirty_ = true;
    SetTimer(window_, timer_, delay_, nullptr);
}

void StoreKeeper::save(Partner& partner)
{
    KillTimer(window_, timer_);
    dirty_ = false;
    const DWORD start = GetTickCount();
    try {
        writeStore(path_, partner.records());
    } catch (const std::exception&) {
        changed(); // somebody may have the file open: once more, later
        throw;
    }
    // A big store must not keep its clients waiting more than a fifth of the time.
    delay_ = std::max(minDelay, 4 * (GetTickCount() - start));
}

void StoreKeeper::saveQuietly(Partner& partner)
{
    if (!dirty_) return;
    try {
        save(partner);
    } catch (const std::exception& error) {
        writeError(error.what());
    }
}

void writeError(const std::string& text)
{
    const std::string line = text + "\n";
    DWORD written = 0;
    WriteFile(GetStdHandle(STD_ERROR_HANDLE), line.data(), static_cast<DWORD>(line.size()), &written, nullptr);
}

}

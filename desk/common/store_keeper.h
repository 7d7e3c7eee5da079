// What keeps a partner's records in its store file: reads them at the start, and
// writes them a little after they have changed.
#pragma once

#include "desk/common/server_program.h"

#include <windows.h>

#include <stdexcept>
#include <string>

namespace desk {

struct BadStore : std::runtime_error {
    using std::runtime_error::runtime_error;
};

class StoreKeeper {
public:
    // A timer of that window tells when to save. The window outlives this.
    StoreKeeper(std::wstring path, HWND window, UINT_PTR timer) noexcept
        : path_(std::move(path)), window_(window), timer_(timer)
    {}

    // Throws BadStore.
    void load(Partner& partner) const;

    void changed();
    bool isDirty() const noexcept { return dirty_; }

    // Throws std::runtime_error; it is tried again then, later.
    void save(Partner& partner);

    // Only what has changed; an error goes to stderr.
    void saveQuietly(Partner& partner);

private:
    const std::wstring path_;
    const HWND window_;
    const UINT_PTR timer_;
    bool dirty_ = false;
    DWORD delay_ = minDelay;

    static constexpr DWORD minDelay = 100; // milliseconds
};

void writeError(const std::string& text);

}

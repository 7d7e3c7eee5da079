// The identifier map's server, as the sweep uses it: emptied before each death,
// read back after it.
#pragma once

#include "groupware.h"

#include "automation/enumeration.h"
#include "automation/object.h"

#include <optional>

namespace deaths {

class MapServer {
public:
    // Registers the installed server and starts it.
    MapServer();

    // Exactly these records.
    void reset(const std::vector<MapRecord>& records);
    std::vector<MapRecord> records(std::int32_t application) const; // of that groupware alone

    DWORD processId() const { return processId_; }
    bool ended(DWORD milliseconds) const;

    // After its death: a new one is asked for.
    void reopen();

private:
    automation::Object map_; // keeps the server

    // Keeps the enumerators' interface in use. Wine's server may wait for ever when
    // the last one is let go at the moment when a call to it ends.
    std::optional<automation::Enumeration> enumerator_;
    DWORD processId_ = 0;
};

}

// The identifier map's server, as the sweep uses it: emptied before each death,
// read back after it.
#pragma once

#include "groupware.h"

#include "automation/object.h"

namespace deaths {

class MapServer {
public:
    // Registers the installed server and starts it.
    MapServer();

    // Exactly these records.
    void reset(const std::vector<MapRecord>& records);
    std::vector<MapRecord> records() const;

    DWORD processId() const { return processId_; }
    bool ended(DWORD milliseconds) const;

    // After its death: a new one is asked for.
    void reopen();

private:
    automation::Object map_; // keeps the server
    DWORD processId_ = 0;
};

}

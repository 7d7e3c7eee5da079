// The connector's ini file as the program follows it: read at the start, whenever
// it has changed, and between two ticks for a stop request alone.
#pragma once

#include <windows.h>

#include <optional>
#include <string>

namespace hublink {

struct Configuration;
class IniFile;
class PavexInterface;

class ConnectorIniFile {
public:
    ConnectorIniFile(Configuration& configuration, PavexInterface& link);
    ConnectorIniFile(const ConnectorIniFile&) = delete;
    ConnectorIniFile& operator=(const ConnectorIniFile&) = delete;

    // At the start: puts the file into its folder where it is missing, and sets
    // back the stop request that an earlier run has left in it.
    void install(const std::wstring& programFolder);

    // Reads the general sections. True when all compared switches are as before
    // ("Histo" is not compared); false otherwise, and when the reading ended early. Whoever
    // asks here follows the file's time instead and does not look at the result.
    bool ReadConnectorIni();

    // Remembers when the file was last changed; whether it has changed since the last
    // time. Throws AutomationError while there is no file.
    bool detectChange();

    // Stops the program if a changed file says so. For long works, during which no tick comes.
    void stopIfFileSaysSo();

private:
    std::optional<FILETIME> lastChange() const;
    bool isFreshStopRequest(const IniFile& ini) const;
    bool stopIfRequested(const IniFile& ini);

    Configuration& configuration_;
    PavexInterface& link_;
    std::optional<FILETIME> gIniFileDate;   // modification time when last read
    std::optional<FILETIME> staleKillTime_; // the file's time when its "kill" could not be set back
    std::optional<FILETIME> killReadTime_;  // modification time when "kill" was last looked at between ticks
};

}

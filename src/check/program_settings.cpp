#include "check/program_settings.h"

#include "common/connector_settings.h"
#include "common/error_trap.h"
#include "lotus/settings_reading.h"
#include "outlook/settings_reading.h"

namespace hublink::check {

// An error ends the reading of a part, here as in the program.
void ProgramSettings::read(const std::wstring& iniFile)
{
    general_.szFileConnectorIni = iniFile;
    const IniFile ini(iniFile);
    trapErrors([&] { readConnectorSettings(ini, general_); });
    if (general_.bgWithOutlook) trapErrors([&] { readOutlookSettings(ini, programFolder_, outlook_); });
    if (general_.bgWithLotus) readLotus(ini);
}

void ProgramSettings::readLotus(const IniFile& ini)
{
    const auto noServer = [] { return std::wstring(); }; // no session is opened to ask for it
    const auto readBook = [&](std::int16_t index, LotusAddressBook& book) {
        readLotusBook(ini, index, noServer, book);
    };
    lotusIsWhole_ = false;
    trapErrors([&] {
        readLotusPersonalLog(ini, lotus_.LotusPersonalLog);
        readLotusAddressBooks(ini, readBook, lotus_);
        readLotusSwitchesAndCallLog(ini, lotus_);
        lotusIsWhole_ = true;
    });
}

}

#include "check/program_settings.h"

#include "automation/error.h"
#include "common/connector_settings.h"
#include "common/ini_file.h"
#include "lotus/settings.h"
#include "outlook/settings.h"

namespace hublink::check {

namespace {

// What no file can hold: still there after a reading that did not reach its place.
constexpr std::int32_t languageNotRead = -100'000;
constexpr const wchar_t* itemNotRead = L"\x01";

}

ProgramSettings::ProgramSettings(const std::wstring& programFolder)
    : dictionary_(programFolder), outlook_(host_, groupware_, dictionary_), lotus_(host_, groupware_, dictionary_)
{
    host_.folder = programFolder;
}

void ProgramSettings::read(const std::wstring& iniFile)
{
    host_.read.szFileConnectorIni = iniFile;
    readGeneral();
    if (general().bgWithOutlook) readOutlook();
    if (general().bgWithLotus) readLotus();
}

void ProgramSettings::readGeneral()
try {
    readConnectorSettings(IniFile(general().szFileConnectorIni), host_.read);
    generalIsWhole_ = namesGroupware(general());
} catch (const automation::AutomationError&) {
    // A number that is none ends the reading, here as in the program.
}

void ProgramSettings::readOutlook()
{
    outlook_.nLanguage = languageNotRead;
    ReadOutlookIni(outlook_);
    outlookIsWhole_ = outlook_.nLanguage != languageNotRead;
    if (!outlookIsWhole_) outlook_.nLanguage = 0;
}

void ProgramSettings::readLotus()
{
    lotus_.LotusCallLog.InfoSupBase = itemNotRead;
    ReadLotusPersonalLogIni(lotus_);
    ReadLotusIni(lotus_);
    lotusIsWhole_ = lotus_.LotusCallLog.InfoSupBase != itemNotRead;
}

}

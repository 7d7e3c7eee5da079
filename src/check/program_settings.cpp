#include "check/program_settings.h"

#include "common/connector_settings.h"
#include "common/error_trap.h"
#include "common/ini_file.h"
#include "lotus/settings.h"
#include "outlook/settings.h"

namespace hublink::check {

namespace {

// What no file can hold: still there after a reading that did not reach its place.
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
    // A number that is none ends the reading, here as in the program.
    trapErrors([&] { readConnectorSettings(IniFile(iniFile), host_.read); });
    if (general().bgWithOutlook) ReadOutlookIni(outlook_);
    if (general().bgWithLotus) readLotus();
}

void ProgramSettings::readLotus()
{
    lotus_.LotusCallLog.InfoSupBase = itemNotRead;
    ReadLotusPersonalLogIni(lotus_);
    ReadLotusIni(lotus_);
    lotusIsWhole_ = lotus_.LotusCallLog.InfoSupBase != itemNotRead;
}

}

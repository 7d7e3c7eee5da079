#include "check/examination.h"

#include "automation/conversion.h"
#include "check/dictionary_language.h"
#include "check/groupware.h"
#include "check/identifier_map.h"
#include "check/ini_file_findings.h"
#include "check/ini_values.h"
#include "check/notes_databases.h"
#include "check/processes.h"
#include "check/rights.h"
#include "check/softphone.h"
#include "common/files.h"
#include "common/installation.h"
#include "common/registry.h"

#include <limits>

namespace hublink::check {

namespace {

std::wstring systemVersion()
{
    OSVERSIONINFOW version{};
    version.dwOSVersionInfoSize = sizeof version;
    if (!GetVersionExW(&version)) return L"?";
    return std::to_wstring(version.dwMajorVersion) + L"." + std::to_wstring(version.dwMinorVersion) + L"." +
           std::to_wstring(version.dwBuildNumber);
}

IniPlace iniPlace(const Configuration& installation, const std::wstring& programFolder)
{
    const std::wstring folder = connectorFolder(installation);
    if (installation.szPathPavex.empty() || installation.szPathPavex == registryNoText)
        return {L"", folder + L"\\" + iniFileName, L""};
    const std::wstring beside = programFolder + L"\\" + iniFileName;
    return {folder, folder + L"\\" + iniFileName, FileExist(beside) ? beside : L""};
}

Findings softphone(const Configuration& installation, const Texts& texts)
{
    Findings findings = softphoneFindings(softphoneFacts(installation), texts.softphone);
    append(findings, classFindings(classFacts(L"Pavex.Application"), texts.classes));
    return findings;
}

Findings groupware(const ProgramSettings& settings, const std::wstring& programFolder, const Texts& texts)
{
    Findings findings = groupwareFindings(groupwareFacts(settings.general()), texts);
    if (settings.general().bgWithLotus)
        append(findings, notesDataFindings(notesDataFacts(settings.lotus(), programFolder), texts.notesData));
    return findings;
}

// A book's section counts as far as the settings count it; without Lotus nobody asks.
int countedBooks(const ProgramSettings& settings)
{
    if (!settings.general().bgWithLotus || settings.lotus().nbPublicAddressBook < 1)
        return std::numeric_limits<int>::max();
    return settings.lotus().nbPublicAddressBook;
}

Findings iniFindings(const IniPlace& place, ProgramSettings& settings, const IniTexts& texts)
{
    Findings findings;
    const IniReading reading = readIni(place, texts, findings);
    if (reading.file.empty()) return findings;
    settings.read(reading.file);
    append(findings, writingFindings(reading.document, countedBooks(settings), texts));
    append(findings, valueFindings(settings, texts));
    return findings;
}

}

Report examine(const Examination& examination, const Texts& texts)
{
    Configuration installation;
    readInstallation(installation);
    const IniPlace place = iniPlace(installation, examination.programFolder);
    ProgramSettings settings(examination.programFolder);
    Findings ini = iniFindings(place, settings, texts.ini);
    const MapFacts map = mapFacts(examination.programFolder);

    Report report;
    report.heading = {texts.report.title(examination.version, automation::textFromDate(automation::now())),
                      texts.report.system(systemVersion())};
    report.sections = {
        {texts.softphone.title(), softphone(installation, texts), {}},
        {texts.ini.title(), std::move(ini), {}},
        {texts.groupware.title(), groupware(settings, examination.programFolder, texts), {}},
        {texts.map.title(), mapFindings(map, texts), {}},
        {texts.dictionary.title(),
         dictionaryFindings(dictionaryFacts(settings, examination.programFolder), texts.dictionary),
         {}},
        {texts.rights.title(),
         rightsFindings(
             rightsFacts(settings, place.connectorFolder, place.connectorFolder.empty() ? L"" : place.file, map.file),
             texts.rights),
         {}},
        {texts.processes.title(), processFindings(runningFacts(settings.general()), texts.processes), {}},
    };
    if (examination.listsMap) report.sections.push_back({texts.map.listTitle(), {}, mappings(map.store, texts.map)});
    return report;
}

}

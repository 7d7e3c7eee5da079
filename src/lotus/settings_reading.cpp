#include "lotus/settings_reading.h"

#include "automation/conversion.h"
#include "automation/error.h"
#include "automation/text.h"
#include "common/text.h"

#include <set>

namespace hublink {

namespace {

constexpr const char* lotusSection = "lotus";

// The item names of a list; an empty value is one empty name.
std::vector<std::wstring> itemNames(const std::wstring& value)
{
    if (value.empty()) return {L""};
    return split(value, L',');
}

std::wstring sectionOfBook(std::int16_t index)
{
    return L"lotus base description " + std::to_wstring(index);
}

// A book whose section is missing has empty texts and empty item names. Only
// the sections that exist are read: asking the file for every key of 32767 books
// takes most of a minute, in which the program would not answer.
std::vector<LotusAddressBook> readDescribedBooks(const IniFile& ini, std::int16_t count, const BookReader& readBook)
{
    if (count < 1) throw automation::AutomationError(L"NbPublicAddressBook", DISP_E_BADINDEX);
    LotusAddressBook undescribed;
    undescribed.PhoneNumber = undescribed.MailAddress = itemNames(L"");
    std::vector<LotusAddressBook> books(static_cast<std::size_t>(count), undescribed);
    std::set<std::wstring> sections;
    for (const std::wstring& name : ini.sections()) sections.insert(lowerCase(trim(name)));
    std::int16_t index = 0;
    for (LotusAddressBook& book : books) {
        ++index;
        if (sections.contains(sectionOfBook(index))) readBook(index, book);
    }
    return books;
}

// Puts the described books into the order of the list; one may stand there
// twice. An entry that makes no sense ends it: the books before it are there,
// itself and those behind it are empty.
void chooseBooks(LotusConfiguration& configuration, const std::vector<LotusAddressBook>& described,
                 const std::wstring& order)
{
    std::vector<std::wstring> entries = split(order, L',');
    std::erase(entries, L"<none>");
    if (entries.empty()) throw automation::AutomationError(L"Order", DISP_E_BADINDEX);
    configuration.LotusAddressBooks.assign(entries.size(), {});
    std::int16_t k = 0;
    for (const std::wstring& entry : entries) {
        const std::wstring text = replaceAll(entry, L"Base ", L"");
        if (text == L"<none>") continue; // "Base <none>" has been counted and leaves its book empty
        const std::int16_t number = automation::int16FromText(text);
        if (number < 1 || number > configuration.nbPublicAddressBook)
            throw automation::AutomationError(L"Order", DISP_E_BADINDEX);
        LotusAddressBook& book = configuration.LotusAddressBooks[static_cast<std::size_t>(k)];
        book = described[static_cast<std::size_t>(number - 1)];
        if (book.PersonalAddressBook && configuration.nSelectedPersonal == -1) configuration.nSelectedPersonal = k;
        ++k;
    }
}

void readSwitches(const IniFile& ini, LotusConfiguration& configuration)
{
    configuration.bShowGrpwAgenda = ini.readSwitch(lotusSection, "ShowGrpwAgenda", "0");
    configuration.bAlwaysVerifyPhoneNumber = ini.readSwitch(lotusSection, "AlwaysVerifyPhoneNumber", "0");
    configuration.bCallInMail = ini.readSwitch(lotusSection, "CallInMail", "0");
    configuration.bPopUpGrpwAgenda = ini.readSwitch(lotusSection, "PopUpGrpwAgenda", "0");
}

void readCallLog(const IniFile& ini, CallLogDescription& log)
{
    const auto read = [&](const char* key, const char* fallback = "") {
        return ini.read("lotus call log description", key, fallback);
    };
    SplitBaseDescription(read("base"), log);
    log.LastName = read("LastName");
    log.FirstName = read("FirstName");
    log.PhoneNumber = read("PhoneNumber");
    log.State = read("State");
    log.BeginDate = read("BeginDate");
    log.EndDate = read("EndDate");
    log.Incoming = read("Incoming");
    log.Extern = read("Extern");
    log.Form = read("Form");
    log.TypeForm = read("TypeForm");
    log.Acknowledged = read("Acknowledged");
    log.TypeCall = read("TypeCall");
    log.InfoSupdocNoteId = read("InfoSupdocNoteId", "InfoSupdocNoteId");
    log.InfoSupServer = read("InfoSupServer", "InfoSupServer");
    log.InfoSupBase = read("InfoSupBase", "InfoSupBase");
}

}

void readLotusBook(const IniFile& ini, std::int16_t index, const ServerName& serverName, LotusAddressBook& book)
{
    const std::string section = automation::ansi(sectionOfBook(index));
    const auto read = [&](const char* key) { return ini.read(section.c_str(), key, ""); };
    book.PersonalAddressBook = ini.readSwitch(section.c_str(), "PersonalAddressBook", "");
    SplitBaseDescription(read("base"), book);
    if (book.Server == L"<server name>") book.Server = serverName();
    book.LastName = read("LastName");
    book.FirstName = read("FirstName");
    book.PhoneNumber = itemNames(read("PhoneNumber"));
    book.FullName = read("FullName");
    book.MailAddress = itemNames(read("MailAddress"));
    book.Form = read("Form");
    book.TypeForm = read("TypeForm");
}

void readLotusAddressBooks(const IniFile& ini, const BookReader& readBook, LotusConfiguration& configuration)
{
    configuration.nSelectedPersonal = -1;
    configuration.nbPublicAddressBook = automation::int16FromText(ini.read(lotusSection, "NbPublicAddressBook", "0"));
    const std::vector<LotusAddressBook> books = readDescribedBooks(ini, configuration.nbPublicAddressBook, readBook);
    chooseBooks(configuration, books, ini.read(lotusSection, "Order", "0"));
}

void readLotusSwitchesAndCallLog(const IniFile& ini, LotusConfiguration& configuration)
{
    readSwitches(ini, configuration);
    readCallLog(ini, configuration.LotusCallLog);
}

void readLotusPersonalLog(const IniFile& ini, PersonalLogDescription& log)
{
    const auto read = [&](const char* key) { return ini.read("lotus personnel log description", key, ""); };
    SplitBaseDescription(read("base"), log);
    log.Body = read("Body");
    log.Events = read("Events");
    log.Form = read("Form");
    log.TypeForm = read("TypeForm");
    log.StartTime = read("StartTime");
    log.FinishTime = read("FinishTime");
    log.serverItem = read("Server");
}

}

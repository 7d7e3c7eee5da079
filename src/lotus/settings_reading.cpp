#include "lotus/settings_reading.h"

#include "automation/conversion.h"
#include "automation/error.h"
#include "automation/text.h"
#include "common/settings_table.h"
#include "common/text.h"

#include <set>

namespace hublink {

namespace {

consteval const Setting& lotus(std::string_view key)
{
    return setting("lotus", key);
}

consteval const Setting& ofBook(std::string_view key)
{
    return setting(bookSection, key);
}

consteval const Setting& ofCallLog(std::string_view key)
{
    return setting("lotus call log description", key);
}

consteval const Setting& ofPersonalLog(std::string_view key)
{
    return setting("lotus personnel log description", key);
}

// The item names of a list; an empty value is one empty name.
std::vector<std::wstring> itemNames(const std::wstring& value)
{
    if (value.empty()) return {L""};
    return split(value, L',');
}

std::wstring sectionOfBook(std::int16_t index)
{
    return automation::toWide(bookSection) + std::to_wstring(index);
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
    configuration.bShowGrpwAgenda = ini.readSwitch(lotus("ShowGrpwAgenda"));
    configuration.bAlwaysVerifyPhoneNumber = ini.readSwitch(lotus("AlwaysVerifyPhoneNumber"));
    configuration.bCallInMail = ini.readSwitch(lotus("CallInMail"));
    configuration.bPopUpGrpwAgenda = ini.readSwitch(lotus("PopUpGrpwAgenda"));
}

void readCallLog(const IniFile& ini, CallLogDescription& log)
{
    SplitBaseDescription(ini.read(ofCallLog("base")), log);
    log.LastName = ini.read(ofCallLog("LastName"));
    log.FirstName = ini.read(ofCallLog("FirstName"));
    log.PhoneNumber = ini.read(ofCallLog("PhoneNumber"));
    log.State = ini.read(ofCallLog("State"));
    log.BeginDate = ini.read(ofCallLog("BeginDate"));
    log.EndDate = ini.read(ofCallLog("EndDate"));
    log.Incoming = ini.read(ofCallLog("Incoming"));
    log.Extern = ini.read(ofCallLog("Extern"));
    log.Form = ini.read(ofCallLog("Form"));
    log.TypeForm = ini.read(ofCallLog("TypeForm"));
    log.Acknowledged = ini.read(ofCallLog("Acknowledged"));
    log.TypeCall = ini.read(ofCallLog("TypeCall"));
    log.InfoSupdocNoteId = ini.read(ofCallLog("InfoSupdocNoteId"));
    log.InfoSupServer = ini.read(ofCallLog("InfoSupServer"));
    log.InfoSupBase = ini.read(ofCallLog("InfoSupBase"));
}

}

void readLotusBook(const IniFile& ini, std::int16_t index, const ServerName& serverName, LotusAddressBook& book)
{
    const std::string section = automation::toAnsi(sectionOfBook(index));
    const auto read = [&](const Setting& setting) { return ini.read(setting.in(section.c_str())); };
    book.PersonalAddressBook = ini.readSwitch(ofBook("PersonalAddressBook").in(section.c_str()));
    SplitBaseDescription(read(ofBook("base")), book);
    if (book.Server == L"<server name>") book.Server = serverName();
    book.LastName = read(ofBook("LastName"));
    book.FirstName = read(ofBook("FirstName"));
    book.PhoneNumber = itemNames(read(ofBook("PhoneNumber")));
    book.FullName = read(ofBook("FullName"));
    book.MailAddress = itemNames(read(ofBook("MailAddress")));
    book.Form = read(ofBook("Form"));
    book.TypeForm = read(ofBook("TypeForm"));
}

void readLotusAddressBooks(const IniFile& ini, const BookReader& readBook, LotusConfiguration& configuration)
{
    configuration.nSelectedPersonal = -1;
    configuration.nbPublicAddressBook = automation::int16FromText(ini.read(lotus("NbPublicAddressBook")));
    const std::vector<LotusAddressBook> books = readDescribedBooks(ini, configuration.nbPublicAddressBook, readBook);
    chooseBooks(configuration, books, ini.read(lotus("Order")));
}

void readLotusSwitchesAndCallLog(const IniFile& ini, LotusConfiguration& configuration)
{
    readSwitches(ini, configuration);
    readCallLog(ini, configuration.LotusCallLog);
}

void readLotusPersonalLog(const IniFile& ini, PersonalLogDescription& log)
{
    SplitBaseDescription(ini.read(ofPersonalLog("base")), log);
    log.Body = ini.read(ofPersonalLog("Body"));
    log.Events = ini.read(ofPersonalLog("Events"));
    log.Form = ini.read(ofPersonalLog("Form"));
    log.TypeForm = ini.read(ofPersonalLog("TypeForm"));
    log.StartTime = ini.read(ofPersonalLog("StartTime"));
    log.FinishTime = ini.read(ofPersonalLog("FinishTime"));
    log.serverItem = ini.read(ofPersonalLog("Server"));
}

}

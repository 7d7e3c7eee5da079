#include "lotus/settings.h"

#include "automation/conversion.h"
#include "automation/error.h"
#include "automation/text.h"
#include "common/configuration.h"
#include "common/error_trap.h"
#include "common/ini_file.h"
#include "common/text.h"
#include "lotus/log_document.h"

#include <set>

namespace hublink {

namespace {

constexpr const char* lotusSection = "lotus";

IniFile iniFile(const LotusSession& session)
{
    return IniFile(session.host.configuration().szFileConnectorIni);
}

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

// The vendor documents "ServerName" for the COM classes only ("ServerName
// property"); the automation object may lack it, and answers with no name where
// the client runs on no server. The user's mail server is meant then.
std::wstring serverOfSession(const LotusSession& session)
{
    std::wstring server;
    trapErrors([&] { server = notesSession(session).get(L"ServerName").text(); });
    return server.empty() ? session.MailServer : server;
}

// A book whose section is missing has empty texts and empty item names. Only
// the sections that exist are read: asking the file for every key of 32767 books
// takes most of a minute, in which the program would not answer.
std::vector<LotusAddressBook> readDescribedBooks(const LotusSession& session)
{
    if (session.nbPublicAddressBook < 1) throw automation::AutomationError(L"NbPublicAddressBook", DISP_E_BADINDEX);
    LotusAddressBook undescribed;
    undescribed.PhoneNumber = undescribed.MailAddress = itemNames(L"");
    std::vector<LotusAddressBook> books(static_cast<std::size_t>(session.nbPublicAddressBook), undescribed);
    std::set<std::wstring> sections;
    for (const std::wstring& name : iniFile(session).sections()) sections.insert(lowerCase(trim(name)));
    std::int16_t index = 0;
    for (LotusAddressBook& book : books) {
        ++index;
        if (sections.contains(sectionOfBook(index))) ReadLotusBaseDescription(session, index, book);
    }
    return books;
}

// Puts the described books into the order of the list; one may stand there
// twice. An entry that makes no sense ends it: the books before it are there,
// itself and those behind it are empty.
void chooseBooks(LotusSession& session, const std::vector<LotusAddressBook>& described, const std::wstring& order)
{
    std::vector<std::wstring> entries = split(order, L',');
    std::erase(entries, L"<none>");
    if (entries.empty()) throw automation::AutomationError(L"Order", DISP_E_BADINDEX);
    session.LotusAddressBooks.assign(entries.size(), {});
    std::int16_t k = 0;
    for (const std::wstring& entry : entries) {
        const std::wstring text = replaceAll(entry, L"Base ", L"");
        if (text == L"<none>") continue; // "Base <none>" has been counted and leaves its book empty
        const std::int16_t number = automation::int16FromText(text);
        if (number < 1 || number > session.nbPublicAddressBook)
            throw automation::AutomationError(L"Order", DISP_E_BADINDEX);
        LotusAddressBook& book = session.LotusAddressBooks[static_cast<std::size_t>(k)];
        book = described[static_cast<std::size_t>(number - 1)];
        if (book.PersonalAddressBook && session.nSelectedPersonal == -1) session.nSelectedPersonal = k;
        ++k;
    }
}

void readSwitches(LotusSession& session, const IniFile& ini)
{
    session.bShowGrpwAgenda = ini.readSwitch(lotusSection, "ShowGrpwAgenda", "0");
    session.bAlwaysVerifyPhoneNumber = ini.readSwitch(lotusSection, "AlwaysVerifyPhoneNumber", "0");
    session.bCallInMail = ini.readSwitch(lotusSection, "CallInMail", "0");
    session.bPopUpGrpwAgenda = ini.readSwitch(lotusSection, "PopUpGrpwAgenda", "0");
}

void readCallLog(CallLogDescription& log, const IniFile& ini)
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

std::wstring joined(const std::vector<std::wstring>& names)
{
    std::wstring text;
    for (const std::wstring& name : names) text += L" " + name;
    return text.substr(names.empty() ? 0 : 1);
}

std::wstring dumpOf(const LotusAddressBook& book, std::size_t index, bool selected)
{
    std::wstring text = L"Base " + std::to_wstring(index) + L"\nServer=" + book.Server + L"\nBase=" + book.Base + L"\n";
    if (book.PersonalAddressBook) text += selected ? L"Personnal Contacts selected\n" : L"Personnal Contacts\n";
    text += L"MainView=" + book.MainView + L"\nView (mail)=" + book.ViewMail + L"\nView (Tel)=" + book.ViewTel;
    text += L"\nFirstName=" + book.FirstName + L"\nLastName=" + book.LastName + L"\nFullName=" + book.FullName;
    text += L"\nPhoneNumber=" + joined(book.PhoneNumber) + L"\nMail=" + joined(book.MailAddress);
    return text + L"\nForm=" + book.Form + L"\nType=" + book.TypeForm + L"\n";
}

}

void ReadLotusBaseDescription(const LotusSession& session, std::int16_t index, LotusAddressBook& book)
{
    trapErrors([&] {
        const IniFile ini = iniFile(session);
        const std::string section = automation::ansi(sectionOfBook(index));
        const auto read = [&](const char* key) { return ini.read(section.c_str(), key, ""); };
        book.PersonalAddressBook = ini.readSwitch(section.c_str(), "PersonalAddressBook", "");
        SplitBaseDescription(read("base"), book);
        if (book.Server == L"<server name>") book.Server = serverOfSession(session);
        book.LastName = read("LastName");
        book.FirstName = read("FirstName");
        book.PhoneNumber = itemNames(read("PhoneNumber"));
        book.FullName = read("FullName");
        book.MailAddress = itemNames(read("MailAddress"));
        book.Form = read("Form");
        book.TypeForm = read("TypeForm");
    });
}

void ReadLotusIni(LotusSession& session)
{
    trapErrors([&] {
        const IniFile ini = iniFile(session);
        session.nSelectedPersonal = -1;
        session.nbPublicAddressBook = automation::int16FromText(ini.read(lotusSection, "NbPublicAddressBook", "0"));
        const std::vector<LotusAddressBook> books = readDescribedBooks(session);
        chooseBooks(session, books, ini.read(lotusSection, "Order", "0"));
        DumpLotusAddressBooks(session);
        readSwitches(session, ini);
        readCallLog(session.LotusCallLog, ini);
    });
}

void ReadLotusPersonalLogIni(LotusSession& session)
{
    trapErrors([&] {
        const IniFile ini = iniFile(session);
        PersonalLogDescription& log = session.LotusPersonalLog;
        const auto read = [&](const char* key) { return ini.read("lotus personnel log description", key, ""); };
        SplitBaseDescription(read("base"), log);
        log.Body = read("Body");
        log.Events = read("Events");
        log.Form = read("Form");
        log.TypeForm = read("TypeForm");
        log.StartTime = read("StartTime");
        log.FinishTime = read("FinishTime");
        log.serverItem = read("Server");
    });
}

void DumpLotusAddressBooks(LotusSession& session)
{
    trapErrors([&] {
        std::wstring text;
        for (std::size_t k = 0; k < session.LotusAddressBooks.size(); ++k)
            text += dumpOf(session.LotusAddressBooks[k], k, static_cast<std::int16_t>(k) == session.nSelectedPersonal);
        WriteLotusLog(session, text);
    });
}

}

#include "lotus/settings.h"

#include "common/configuration.h"
#include "common/error_trap.h"
#include "lotus/log_document.h"
#include "lotus/settings_reading.h"

namespace hublink {

namespace {

IniFile iniFile(const LotusSession& session)
{
    return IniFile(session.host.configuration().szFileConnectorIni);
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
    trapErrors([&] { readLotusBook(iniFile(session), index, [&] { return serverOfSession(session); }, book); });
}

void ReadLotusIni(LotusSession& session)
{
    trapErrors([&] {
        const IniFile ini = iniFile(session);
        const auto readBook = [&](std::int16_t index, LotusAddressBook& book) {
            ReadLotusBaseDescription(session, index, book);
        };
        readLotusAddressBooks(ini, readBook, session);
        DumpLotusAddressBooks(session);
        readLotusSwitchesAndCallLog(ini, session);
    });
}

void ReadLotusPersonalLogIni(LotusSession& session)
{
    trapErrors([&] { readLotusPersonalLog(iniFile(session), session.LotusPersonalLog); });
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

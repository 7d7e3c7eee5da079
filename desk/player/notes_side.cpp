#include "desk/player/notes_side.h"

#include "desk/common/text.h"
#include "desk/player/fixtures.h"
#include "desk/player/timeouts.h"

namespace desk::player {

namespace {

constexpr const wchar_t* personalBook = L"names.nsf";
constexpr const wchar_t* history = L"pavexhistory.nsf";
constexpr const wchar_t* logDatabase = L"connector.nsf";
constexpr const wchar_t* mailDatabase = L"mail\\anna.nsf";

std::wstring text(const std::optional<StoreRecord>& record, const wchar_t* field)
{
    const std::wstring* value = record ? record->find(field) : nullptr;
    return value ? *value : L"";
}

}

void NotesSide::start()
{
    desk_.startNotes(morningDatabases());
    for (const Setting& setting : notesSettings()) desk_.setDefault(setting.section, setting.key, setting.value);
}

void NotesSide::clear()
{
    desk_.notes(L"close-windows");
    desk_.notes(L"clear");
}

std::wstring NotesSide::log()
{
    // The newest document is the session's.
    const auto documents = parseStore(desk_.notes(L"documents " + std::wstring(logDatabase)));
    return documents.empty() ? L"" : text(documents.back(), L"Body");
}

std::size_t NotesSide::count(const wchar_t* database, const wchar_t* form)
{
    std::size_t found = 0;
    for (const StoreRecord& record : parseStore(desk_.notes(L"documents " + std::wstring(database)))) {
        const std::wstring* name = record.find(L"Form");
        found += name && *name == form && !record.find(L"@Unsaved");
    }
    return found;
}

// Whether a document's window of that title opens, "read" or "edit".
bool NotesSide::opens(const std::wstring& title, const wchar_t* mode)
{
    return waitUntil(
               [&] {
                   for (const std::wstring& line : linesOf(desk_.notes(L"windows")))
                       if (line.starts_with(title + L"\t") &&
                           line.find(L"\t" + std::wstring(mode)) != std::wstring::npos)
                           return true;
                   return false;
               },
               eventTimeout) &&
           desk_.notesShows(title);
}

void NotesSide::expectSynchronised()
{
    narrator_.expect(eachOnce(), L"Notes: " + std::to_wstring(strangersToNotes) +
                                     L" contacts are new in the personal book, and " +
                                     std::to_wstring(callsOfYesterday) + L" calls lie in the history database");
    desk_.notes(L"show " + std::wstring(history));
}

bool NotesSide::eachOnce()
{
    return count(history, L"Call") == callsOfYesterday &&
           count(personalBook, L"Person") == personalContacts + strangersToNotes;
}

void NotesSide::expectNothingTwice()
{
    narrator_.expect(eachOnce(), L"Notes: nothing has been copied twice");
}

void NotesSide::expectKnownCaller()
{
    narrator_.expect(opens(L"Marc Durand/Acme", L"read"), L"Notes: the document of Marc Durand is on the screen");
    narrator_.expect(desk_.notes(L"environment").find(L"$CTI_InfoLastCall_Base=company.nsf") != std::wstring::npos,
                     L"Notes: the call is published in the environment");
}

void NotesSide::expectStranger()
{
    narrator_.expect(opens(L"Linh Nguyen", L"edit"), L"Notes: a new contact of Linh Nguyen is open for editing");
    narrator_.expect(text(desk_.document(personalBook, L"LastName", L"Nguyen"), L"@Unsaved") == L"True",
                     L"Notes: it is left to Anna to save it");
}

void NotesSide::expectMessage()
{
    narrator_.expect(opens(L"Marc Durand", L"edit"), L"Notes: a phone message about Marc Durand is open for editing");
    // It has its title before it has all its fields.
    const auto isWhole = [&] {
        const auto message = desk_.document(mailDatabase, L"Form", L"Phone Message");
        return text(message, L"SendTo") == L"claire.petit@example.com" &&
               text(message, L"PhoneNumber") == L"0123456789";
    };
    narrator_.expect(waitUntil(isWhole, eventTimeout),
                     L"Notes: it is addressed to claire.petit@example.com and has the number");
    narrator_.expect(opens(L"Sales", L"read"), L"Notes: the calendar of the group in which Claire Petit works is open");
}

void NotesSide::bringMessageToFront()
{
    opens(L"Marc Durand/Acme", L"read");
    bringToFront(L"Marc Durand - Lotus Notes");
}

void NotesSide::editSetting()
{
    desk_.setIni("lotus", "PopUpGrpwAgenda", "false");
}

void NotesSide::expectChangedMessage()
{
    narrator_.expect(opens(L"Marc Durand", L"edit"), L"Notes: the next message is open");
    narrator_.expect(opens(L"Marc Durand/Acme", L"read") &&
                         desk_.notes(L"windows").find(L"Sales\t") == std::wstring::npos,
                     L"Notes: the caller's document follows, and no calendar before it");
}

void NotesSide::expectReadAgain()
{
    narrator_.expect(
        waitUntil([&] { return calls().find(L"NotesDatabase.CreateDocument") != std::wstring::npos; }, tickTimeout),
        L"Notes: Hublink has opened a new session and a new log document");
}

void NotesSide::playOwnSteps()
{
    readMail();
    readLog();
}

void NotesSide::readMail()
{
    narrator_.step(L"Anna reads a mail of Claire Petit in Notes.");
    const auto mail = desk_.document(mailDatabase, L"Subject", L"Minutes");
    clear();
    desk_.notes(L"open " + text(mail, L"@UniversalID"));
    desk_.notes(L"front");
    narrator_.expect(
        waitUntil([&] { return text(desk_.document(mailDatabase, L"Subject", L"Minutes"), L"Tel") == L"4711"; },
                  tickTimeout),
        L"the mail has Claire Petit's number, 4711, in its item \"Tel\"");
    narrator_.expect(opens(L"Minutes", L"read") &&
                         waitUntil([&] { return linesOf(desk_.notes(L"windows")).size() == 1; }, eventTimeout),
                     L"it is open once, for reading");
    desk_.notes(L"back");
}

void NotesSide::readLog()
{
    narrator_.step(L"Anna opens the log document in Notes.");
    const std::wstring body = log();
    for (const std::wstring& line : linesOf(body)) narrator_.remark(L"         " + line);
    narrator_.expect(hasLine(body, L"Start Connector Initialization") && hasLine(body, L"Connector Initialization  Ok"),
                     L"it tells of the initialisation");
}

}

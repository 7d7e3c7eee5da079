#include "notes_mirror.h"

#include "log_lines.h"
#include "softphone_records.h"

#include "desk/common/control_pipe.h"
#include "desk/common/store_file.h"
#include "support/processes.h"

namespace deaths {

namespace {

using desk::StoreRecord;

constexpr const wchar_t* mappedContact = L"907";

// Of the n-th call, when it is mirrored from the start.
std::wstring mirroredId(std::size_t n)
{
    return L"A" + std::to_wstring(10 + 4 * n);
}

std::wstring valueOf(const StoreRecord& record, const wchar_t* item)
{
    const std::wstring* value = record.find(item);
    return value ? *value : L"";
}

std::vector<StoreRecord> documents(const wchar_t* database)
{
    return desk::parseStore(desk::ask(L"nlnotes", L"documents " + std::wstring(database)));
}

// The link to a person is left out: it is the number of a document that may
// have been made in another order.
Mirror mirror(const StoreRecord& record, const std::wstring& key)
{
    Mirror made{valueOf(record, L"@NoteID"), key, L""};
    for (const auto& [name, value] : record.fields)
        if (!name.starts_with(L'@') && name != L"InfoSupdocNoteId") made.content += name + L"=" + value + L"\n";
    return made;
}

std::wstring person(const wchar_t* noteId, const wchar_t* number)
{
    return std::wstring(L"[document]\n@NoteID=") + noteId + L"\nForm=Person\nFirstName=Known\nLastName=Contact" +
           number + L"\nFullName=Known Contact\nPhone=" + number + L"\n";
}

}

// An initialisation in the middle of which Notes died is not retried, and one
// that is asked for elsewhere starts Notes: then that one has to go first.
void NotesMirror::reopen(desk::player::Desk& desk) const
{
    if (!support::processesNamed(L"nlnotes.exe").empty()) {
        desk::ask(partner(), L"exit");
        desk::player::waitUntil([] { return support::processesNamed(L"nlnotes.exe").empty(); }, 20'000);
    }
    desk.startNotes();
}

std::string NotesMirror::iniSections() const
{
    return "[lotus]\r\nNbPublicAddressBook=1\r\nOrder=Base 1\r\n"
           "[lotus base description 1]\r\nPersonalAddressBook=true\r\nbase=names.nsf|||Phones|\r\n"
           "LastName=LastName\r\nFirstName=FirstName\r\nFullName=FullName\r\nPhoneNumber=Phone\r\n"
           "MailAddress=Mail\r\nForm=Person\r\nTypeForm=Person\r\n"
           "[lotus call log description]\r\nbase=calls.nsf||Calls||\r\nLastName=LastName\r\nFirstName=FirstName\r\n"
           "PhoneNumber=Number\r\nState=State\r\nBeginDate=BeginDate\r\nEndDate=EndDate\r\nIncoming=Incoming\r\n"
           "Form=Call\r\nTypeForm=Call\r\nAcknowledged=Acknowledged\r\nTypeCall=TypeCall\r\n"
           "[lotus personnel log description]\r\nbase=log.nsf||||\r\nBody=Body\r\nEvents=Events\r\nForm=Log\r\n"
           "TypeForm=Log\r\nStartTime=StartTime\r\nFinishTime=FinishTime\r\nServer=Server\r\n";
}

std::wstring NotesMirror::startingRecords() const
{
    std::wstring text = L"[database]\nFile=names.nsf\n[view]\nName=Phones\nKey=Phone\nForm=Person\n" +
                        person(L"903", knownNumber) + person(L"905", dottedNumber) +
                        person(mappedContact, mappedNumber);
    text += L"[database]\nFile=calls.nsf\n[view]\nName=Calls\nKey=BeginDate\n";
    for (std::size_t n = 0; n < deaths::calls().size(); ++n) {
        const Call& call = deaths::calls()[n];
        if (call.isMirrored)
            text += L"[document]\n@NoteID=" + mirroredId(n) + L"\nForm=Call\nBeginDate:date=" + call.begin + L"\n";
    }
    return text + L"[database]\nFile=log.nsf\n";
}

std::vector<MapRecord> NotesMirror::startingMap() const
{
    std::vector<MapRecord> map{{goneEntry, L"998", mapApplication(), 1}, {goneCall, L"999", mapApplication(), 0}};
    for (const Entry& entry : entries())
        if (entry.number == mappedNumber) map.push_back({entry.id, mappedContact, mapApplication(), 1});
    for (std::size_t n = 0; n < deaths::calls().size(); ++n)
        if (deaths::calls()[n].isMirrored) map.push_back({deaths::calls()[n].id, mirroredId(n), mapApplication(), 0});
    return map;
}

std::vector<Mirror> NotesMirror::contacts() const
{
    std::vector<Mirror> found;
    for (const StoreRecord& record : documents(L"names.nsf"))
        found.push_back(mirror(record, valueOf(record, L"Phone")));
    return found;
}

std::vector<Mirror> NotesMirror::calls() const
{
    std::vector<Mirror> found;
    for (const StoreRecord& record : documents(L"calls.nsf"))
        found.push_back(mirror(record, valueOf(record, L"BeginDate:date")));
    return found;
}

std::vector<std::wstring> NotesMirror::logLines() const
{
    std::vector<std::wstring> lines;
    for (const StoreRecord& record : documents(L"log.nsf"))
        for (const std::wstring& line : linesWithoutTime(valueOf(record, L"Body"))) lines.push_back(line);
    return lines;
}

}

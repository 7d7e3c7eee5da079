// What the tests of the Lotus room share: a simulated Notes in this process,
// reached through real automation, and a session that the real initialisation
// opens from an ini file on the disk.
#pragma once

#include "automation/text.h"
#include "common/dictionary.h"
#include "common/text.h"
#include "desk/common/store_file.h"
#include "desk/lotus/in_process.h"
#include "lotus/initialisation.h"
#include "lotus/lotus_session.h"
#include "support/scratch_folder.h"
#include "support/test_host.h"
#include "support/trapped_errors.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace hublink {

// Notes as it is before a test adds documents: the user's own address book, a
// company's on a server, the user's mail, the call history and the log.
inline constexpr std::wstring_view notesDatabases = LR"([notes]
UserName=CN=Anna Keller/O=Acme

[environment]
MailServer=CN=Mail1/O=Acme
MailFile=mail\\akeller.nsf

[database]
File=names.nsf

[view]
Name=People
Key=LastName
Form=Person

[view]
Name=($Phones)
Key=OfficePhoneNumber
Form=Person

[view]
Name=($Mails)
Key=MailAddress
Form=Person

[database]
Server=CN=Mail1/O=Acme
File=books\\company.nsf

[view]
Name=Staff
Key=Name
Form=Employee

[database]
Server=CN=Mail1/O=Acme
File=mail\\akeller.nsf

[database]
File=pavexhistory.nsf

[view]
Name=Calls
Key=Begin
Form=Call

[database]
File=log.nsf
)";

// These databases as an ini file describes them: book 1 is personal and keyed
// by number and by mail address, book 2 is searched by its full text.
inline constexpr const char* describedBooks = R"([lotus]
NbPublicAddressBook=2
Order=Base 1,Base 2

[lotus base description 1]
PersonalAddressBook=true
base=names.nsf||People|($Phones)|($Mails)
LastName=LastName
FirstName=FirstName
PhoneNumber=OfficePhoneNumber,CellPhoneNumber
FullName=FullName
MailAddress=MailAddress,InternetAddress
Form=Person
TypeForm=PersonType

[lotus base description 2]
PersonalAddressBook=false
base=books\company.nsf|CN=Mail1/O=Acme|Staff||
LastName=Name
FirstName=GivenName
PhoneNumber=Phone
FullName=WholeName
MailAddress=Mail
Form=Employee
TypeForm=EmployeeType

[lotus call log description]
base=pavexhistory.nsf||Calls||
LastName=Last
FirstName=First
PhoneNumber=Number
State=CallState
BeginDate=Begin
EndDate=End
Incoming=In
Extern=Ext
Form=Call
TypeForm=CallType
Acknowledged=Ack
TypeCall=Kind

[lotus personnel log description]
base=log.nsf||||
Body=Text
Events=What
Form=Log
TypeForm=LogType
StartTime=Start
FinishTime=Finish
Server=From
)";

using Lines = std::vector<std::wstring>;

class LotusFixture : public testing::Test {
protected:
    LotusFixture()
    {
        host.settings.bgWithLotus = true;
        host.settings.szFileConnectorIni = folder.file(L"pavexconnector.ini");
        notes.load(notesDatabases);
    }

    void writeIni(const std::string& text) { folder.write(L"pavexconnector.ini", text); }

    // Opens the session as the program does, from this ini file. Nothing of it
    // is in the record afterwards.
    void ready(const std::string& ini = describedBooks)
    {
        writeIni(ini);
        InitLotus(session, NewLog::yes);
        ASSERT_TRUE(session.LotusReady);
        forgetCalls();
    }

    // The planned faults go too.
    void forgetCalls() { notes.recorder().clear(); }

    void fault(std::wstring_view text) { notes.recorder().faults.add(text); }

    // How often a member was called or a name looked up: "NotesDatabase.GetView method".
    unsigned long calls(const std::wstring& member) { return notes.recorder().count(member); }

    // Every call in order, "Class.Member kind (arguments)", without the look-ups of names.
    Lines record()
    {
        Lines lines;
        for (const desk::RecordedCall& call : notes.recorder().calls())
            if (call.kind != desk::CallKind::lookup) lines.push_back(call.text());
        return lines;
    }

    // Those of one member, or of all whose names begin so.
    Lines callsTo(const std::wstring& member)
    {
        Lines lines = record();
        std::erase_if(lines, [&](const std::wstring& line) { return !line.starts_with(member); });
        return lines;
    }

    // Another user saves a document, given by its items ("LastName=Durand\n...").
    // Returns its universal identifier.
    std::wstring add(const std::wstring& database, const std::wstring& items)
    {
        return notes.ask(L"add " + database + L"\n" + items);
    }

    // The saved documents of a database.
    std::vector<desk::StoreRecord> documents(const std::wstring& database)
    {
        return desk::parseStore(notes.ask(L"documents " + database));
    }

    // A value of a document as the store writes it; "(none)" without one.
    static std::wstring field(const desk::StoreRecord& document, const wchar_t* name)
    {
        const std::wstring* const value = document.find(name);
        return value ? *value : L"(none)";
    }

    // With the line feed before it.
    std::wstring lastLogLine()
    {
        const std::wstring body = field(documents(L"log.nsf").back(), L"Text");
        return body.substr(body.rfind(L'\n'));
    }

    support::ScratchFolder folder;
    support::TrappedErrors trapped;
    TestHost host;
    GroupwareState groupware;
    Dictionary dictionary{L"C:\\nowhere"};
    desk::lotus::InProcess notes;
    LotusSession session{host, groupware, dictionary};
};

}

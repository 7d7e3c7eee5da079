// The link with Notes in use besides Outlook: a public address book on a
// server, a personal one, the user's mail with group calendars, the call
// history and the log. Both partners' calls are in `outlookCalls`, in order.
#pragma once

#include "desk/lotus/in_process.h"
#include "link_fixture.h"

namespace hublink {

class NotesLinkFixture : public LinkFixture {
protected:
    NotesLinkFixture()
    {
        notes.load(databases);
        writeIni(switches);
        host.settings.szFileConnectorIni = ini;
        host.settings.bgWithLotus = true;
    }

    // The switches are lines of section "lotus".
    void writeIni(const std::string& lines) const
    {
        support::writeFile(ini, "[lotus]\r\nNbPublicAddressBook=2\r\nOrder=Base 1,Base 2\r\n" + lines + descriptions);
    }

    // The field of the n-th document with that form, saved or not; "(none)" without it.
    std::wstring noteField(const wchar_t* form, std::size_t index, const wchar_t* field)
    {
        for (const desk::StoreRecord& record : desk::parseStore(notes.ask(L"documents"))) {
            const std::wstring* name = record.find(L"Form");
            if (!name || *name != form || index-- != 0) continue;
            const std::wstring* value = record.find(field);
            return value ? *value : L"(none)";
        }
        return L"(no such document)";
    }

    std::size_t noteCount(const wchar_t* form)
    {
        std::size_t found = 0;
        for (const desk::StoreRecord& record : desk::parseStore(notes.ask(L"documents"))) {
            const std::wstring* name = record.find(L"Form");
            found += name && *name == form;
        }
        return found;
    }

    std::wstring environment(const std::wstring& variable)
    {
        for (const std::wstring& line : desk::linesOf(notes.ask(L"environment")))
            if (line.starts_with(L"$" + variable + L"=")) return line.substr(variable.size() + 2);
        return L"(none)";
    }

    // What is open in Notes, a line each: title and "read" or "edit".
    std::vector<std::wstring> openNotes()
    {
        std::vector<std::wstring> lines;
        for (const std::wstring& line : desk::linesOf(notes.ask(L"windows"))) {
            const bool editing = line.find(L"\tedit") != std::wstring::npos;
            lines.push_back(line.substr(0, line.find(L'\t')) + (editing ? L" edit" : L" read"));
        }
        return lines;
    }

    // The place of a call among all, counted from 0.
    std::size_t placeOf(const std::wstring& call)
    {
        const std::vector<std::wstring> lines = desk::linesOf(outlookCalls.record());
        for (std::size_t place = 0; place < lines.size(); ++place)
            if (lines[place].starts_with(call)) return place;
        ADD_FAILURE() << desk::utf8(call) << " did not come";
        return 0;
    }

    static constexpr const wchar_t* databases = LR"([environment]
MailServer=CN=Mail1/O=Acme
MailFile=mail\\anna.nsf

[database]
Server=CN=Mail1/O=Acme
File=public.nsf

[form]
Name=Person
Title=FullName

[view]
Name=People
Key=LastName
Form=Person

[view]
Name=Phones
Key=Office
Form=Person

[document]
@NoteID=8FA
Form=Person
LastName=Petit
FirstName=Claire
FullName=Claire Petit/Acme
Office=4711
Mail=claire.petit@example.com

[document]
Form=Person
LastName=Durand
FirstName=Marc
FullName=Marc Durand/Acme
Office=0123

[database]
File=names.nsf

[form]
Name=Person
Title=FullName

[view]
Name=Phones
Key=Phone
Form=Person

[database]
Server=CN=Mail1/O=Acme
File=mail\\anna.nsf

[form]
Name=Phone Message
Title=PhoneCaller
Field=SendTo
Field=PhoneCaller
Field=PhoneNumber
Field=PhoneReason
Field=Body:richtext

[form]
Name=(GroupCalendar)
Title=Name

[view]
Name=(GroupCalendarFolder)
Key=Name
Form=(GroupCalendar)

[document]
@NoteID=A02
Form=(GroupCalendar)
Name=Sales
Members=Marc Durand/Acme
Members+=Claire Petit/Acme

[document]
@NoteID=A06
Form=(GroupCalendar)
Name=Marketing
Members=Anna Keller/Acme

[database]
File=pavexhistory.nsf

[view]
Name=Calls
Key=BeginDate

[database]
File=log.nsf
)";

    static constexpr const char* switches = "ShowGrpwAgenda=true\r\nPopUpGrpwAgenda=true\r\n";

    static constexpr const char* descriptions =
        "[lotus base description 1]\r\nbase=public.nsf|Mail1/Acme|People|Phones|\r\nLastName=LastName\r\n"
        "FirstName=FirstName\r\nFullName=FullName\r\nPhoneNumber=Office\r\nMailAddress=Mail\r\nForm=Person\r\n"
        "TypeForm=Person\r\n"
        "[lotus base description 2]\r\nPersonalAddressBook=true\r\nbase=names.nsf|||Phones|\r\nLastName=LastName\r\n"
        "FirstName=FirstName\r\nFullName=FullName\r\nPhoneNumber=Phone\r\nMailAddress=Mail\r\nForm=Person\r\n"
        "TypeForm=Person\r\n"
        "[lotus call log description]\r\nbase=pavexhistory.nsf||Calls||\r\nLastName=LastName\r\n"
        "FirstName=FirstName\r\nPhoneNumber=Number\r\nState=State\r\nBeginDate=BeginDate\r\nEndDate=EndDate\r\n"
        "Incoming=Incoming\r\nForm=Call\r\nTypeForm=Call\r\nAcknowledged=Acknowledged\r\nTypeCall=TypeCall\r\n"
        "[lotus personnel log description]\r\nbase=log.nsf||||\r\nBody=Body\r\nEvents=Events\r\nForm=Log\r\n"
        "TypeForm=Log\r\nStartTime=StartTime\r\nFinishTime=FinishTime\r\nServer=Server\r\n";

    const std::wstring ini = folder.file(L"pavexconnector.ini");
    desk::lotus::InProcess notes{&outlookCalls};
};

}

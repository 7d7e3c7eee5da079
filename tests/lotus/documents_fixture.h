// What the tests of documents that are written and shown share: a mail file
// with the forms and the folder that Notes itself puts there.
#pragma once

#include "lotus_fixture.h"

#include <utility>

namespace hublink {

using Fields = std::vector<std::pair<std::wstring, std::wstring>>; // names and values

inline constexpr const wchar_t* ownBook = L"names.nsf";
inline constexpr const wchar_t* mailFile = L"mail\\anna.nsf";
inline constexpr const wchar_t* historyBase = L"pavexhistory.nsf";

inline constexpr std::wstring_view ownMail = LR"(
[environment]
MailFile=mail\\anna.nsf

[database]
Server=CN=Mail1/O=Acme
File=mail\\anna.nsf

[form]
Name=Phone Message
Field=SendTo
Field=PhoneCaller
Field=PhoneNumber
Field=PhoneReason
Field=Body:richtext

[view]
Name=(GroupCalendarFolder)
Key=CalendarName
Form=(GroupCalendar)
)";

class LotusDocumentsFixture : public LotusFixture {
protected:
    LotusDocumentsFixture() { loadNotes(); }

    // Notes and the session as they are after `ready`, whatever happened since.
    void again()
    {
        loadNotes();
        session.LotusMustInit = true;
        ready();
    }

    // What a document holds, in its order, without what Notes itself adds.
    static Fields itemsOf(const desk::StoreRecord& document)
    {
        Fields items;
        for (const auto& each : document.fields)
            if (!each.first.starts_with(L'@')) items.push_back(each);
        return items;
    }

    // The last line of the log document, with its date and time.
    std::wstring logLine()
    {
        const std::wstring text = field(documents(L"log.nsf").back(), L"Text");
        return text.substr(text.rfind(L'\n') + 1);
    }

private:
    void loadNotes() { notes.load(std::wstring(notesDatabases).append(ownMail)); }
};

}

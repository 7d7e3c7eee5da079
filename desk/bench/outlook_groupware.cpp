#include "desk/bench/outlook_groupware.h"

#include "desk/common/store_file.h"
#include "desk/common/text.h"

namespace desk::bench {

namespace {

constexpr DWORD maxLoadTime = 120'000; // milliseconds, for a hundred thousand contacts beside other work

struct Field {
    const char* name;
    int position; // among the telephone fields, from 1
};

// The contacts' numbers stand in these by turns.
constexpr Field fields[] = {{"BusinessTelephoneNumber", 1}, {"HomeTelephoneNumber", 10}, {"MobileTelephoneNumber", 11}};

const Field& fieldAt(std::size_t place)
{
    return fields[place % std::size(fields)];
}

std::string recordsOf(const People& contacts)
{
    std::string records;
    std::size_t n = 0;
    for (const Person& person : contacts) {
        records += "[contact]\nFirstName=" + person.firstName + "\nLastName=" + person.lastName + "\n" +
                   fieldAt(n++).name + "=" + person.number + "\n";
        if (!person.mail.empty()) records += "Email1Address=" + person.mail + "\n";
    }
    return records;
}

// A record's fields but those that differ from run to run: identifiers follow
// the order of creation, in which log lines stand too, and times go on.
std::wstring comparable(const StoreRecord& record, std::initializer_list<const wchar_t*> names)
{
    std::wstring text;
    for (const wchar_t* field : names)
        if (const std::wstring* value = record.find(field)) text += std::wstring(field) + L"=" + *value + L"\n";
    return text;
}

}

int fieldsUntilNumber(std::size_t place)
{
    return fieldAt(place).position;
}

void OutlookGroupware::start(const People& contacts)
{
    desk_.startOutlook(recordsOf(contacts));
}

void OutlookGroupware::load(const People& contacts)
{
    desk_.outlook(L"load\n" + fromUtf8(recordsOf(contacts)), maxLoadTime);
    desk_.outlook(L"count", maxLoadTime); // behind the saving of the store, in which no client is answered
}

int OutlookGroupware::logLines(const std::wstring& ending)
{
    int found = 0;
    for (const StoreRecord& item : parseStore(desk_.outlook(L"journal"))) {
        const std::wstring* type = item.find(L"Type");
        const std::wstring* body = item.find(L"Body");
        if (!type || *type != L"Pavex Connector" || !body) continue;
        for (const std::wstring& line : linesOf(*body)) found += line.ends_with(ending);
    }
    return found;
}

std::wstring OutlookGroupware::mirrored()
{
    std::wstring text;
    for (const StoreRecord& contact : parseStore(desk_.outlook(L"contacts")))
        text += comparable(contact, {L"FirstName", L"LastName", L"BusinessTelephoneNumber", L"HomeTelephoneNumber",
                                     L"MobileTelephoneNumber"});
    for (const StoreRecord& item : parseStore(desk_.outlook(L"journal")))
        if (const std::wstring* type = item.find(L"Type"); type && *type == L"Phone Call")
            text += comparable(item, {L"Subject", L"Start", L"End", L"Recipient"});
    return text;
}

bool OutlookGroupware::isOfWalk(const std::wstring& member) const
{
    return member == L"Items.GetFirst" || member == L"Items.GetNext" || member.ends_with(L"TelephoneNumber") ||
           member == L"ContactItem.ISDNNumber";
}

unsigned long OutlookGroupware::walked(const CallCounts& counts) const
{
    return counts.of(L"Items.GetFirst").calls + counts.of(L"Items.GetNext").calls;
}

std::vector<NeededCalls> OutlookGroupware::neededForSession() const
{
    return {{L"session: GetNamespace, GetDefaultFolder three times", 4},
            {L"log item: CreateItem, Subject, Start, End, Type, Body, Close", 7},
            {L"five more log lines: End, Body, Body, Close", 5 * 4}};
}

}

#include "desk/bench/notes_groupware.h"

#include "desk/common/store_file.h"
#include "desk/common/text.h"

#include <algorithm>

namespace desk::bench {

namespace {

struct Book {
    const char* section;
    const char* file;
    const char* server;
};

constexpr Book books[] = {{"lotus base description 1", "company.nsf", "Mail1/Acme"},
                          {"lotus base description 2", "branch.nsf", "Mail1/Acme"},
                          {"lotus base description 3", "names.nsf", ""}};
constexpr const Book& personalBook = books[2];

std::string person(const Person& who)
{
    const std::string number = withoutSeparators(who.number); // a view needs it as it is looked for
    return "[document]\nForm=Person\nFirstName=" + who.firstName + "\nLastName=" + who.lastName +
           "\nFullName=" + who.firstName + " " + who.lastName + "\nOfficePhoneNumber=" + number + "\n";
}

std::string database(const Book& book)
{
    const std::string server = *book.server ? std::string("Server=") + book.server + "\n" : "";
    return "[database]\n" + server + "File=" + book.file +
           "\n[form]\nName=Person\nTitle=FullName\n[view]\nName=People\nKey=LastName\nForm=Person\nDefault=True\n"
           "[view]\nName=Phones\nKey=OfficePhoneNumber\nForm=Person\n";
}

std::string otherDatabases()
{
    return "[database]\nFile=pavexhistory.nsf\n[view]\nName=Calls\nKey=BeginDate\nForm=Call\nDefault=True\n"
           "[database]\nFile=connector.nsf\n";
}

// Another number for each book and person.
Person numbered(std::size_t book, int n)
{
    return {"Person", std::to_string(n), "9" + std::to_string(book) + std::to_string(1'000'000 + n)};
}

std::string recordsOf(const People& contacts)
{
    std::string records;
    for (const Book& book : books) records += database(book);
    for (const Person& who : contacts) records += person(who); // into the last book, the personal one
    return records + otherDatabases();
}

std::wstring valueOf(const StoreRecord& record, const wchar_t* item)
{
    const std::wstring* value = record.find(item);
    return value ? *value : L"";
}

}

void NotesGroupware::start(const People& contacts)
{
    desk_.startNotes(recordsOf(contacts));
}

void NotesGroupware::load(const People& contacts)
{
    desk_.notes(L"load\n" + fromUtf8(recordsOf(contacts)));
}

void NotesGroupware::fillBooks(int persons, const std::string& number)
{
    std::string records;
    for (std::size_t book = 0; book < std::size(books); ++book) {
        records += database(books[book]);
        for (int n = 1; n < persons; ++n) records += person(numbered(book, n));
        const bool isPersonal = &books[book] == &personalBook;
        records += person(isPersonal ? Person{"Marc", "Durand", number} : numbered(book, persons));
    }
    desk_.notes(L"load\n" + fromUtf8(records + otherDatabases()));
}

void NotesGroupware::configure()
{
    desk_.setIni("Application", "type", "LOTUS");
    desk_.setIni("lotus", "NbPublicAddressBook", "3");
    desk_.setIni("lotus", "Order", "Base 1,Base 2,Base 3");
    for (const Book& book : books) {
        const std::string base = std::string(book.file) + "|" + book.server + "|People|Phones|";
        desk_.setIni(book.section, "base", base.c_str());
        desk_.setIni(book.section, "PersonalAddressBook", &book == &personalBook ? "true" : "false");
        for (const char* name : {"LastName", "FirstName", "FullName"}) desk_.setIni(book.section, name, name);
        desk_.setIni(book.section, "PhoneNumber", "OfficePhoneNumber");
        desk_.setIni(book.section, "MailAddress", "InternetAddress");
        desk_.setIni(book.section, "Form", "Person");
        desk_.setIni(book.section, "TypeForm", "Person");
    }
    desk_.setIni("lotus personnel log description", "base", "connector.nsf||||");
}

int NotesGroupware::logLines(const std::wstring& ending)
{
    int found = 0;
    for (const StoreRecord& log : parseStore(desk_.notes(L"documents connector.nsf")))
        for (const std::wstring& line : linesOf(valueOf(log, L"Body"))) found += line.ends_with(ending);
    return found;
}

// Without the identifiers, which follow the order of creation in all databases.
std::wstring NotesGroupware::mirrored()
{
    std::wstring text;
    for (const wchar_t* file : {L"names.nsf", L"pavexhistory.nsf"})
        for (const StoreRecord& document : parseStore(desk_.notes(L"documents " + std::wstring(file))))
            for (const auto& [name, value] : document.fields)
                if (!name.starts_with(L'@')) text += name + L"=" + value + L"\n";
    return text;
}

std::vector<NeededCalls> NotesGroupware::neededForSession() const
{
    return {{L"session: the mail file, the user's name, the log, the history and the version", 6},
            {L"log document: CreateDocument, Form, Type, Server, Body, Events, StartTime, Save", 8},
            {L"eight more log lines: Body, its removal, Body, FinishTime, Save", 8 * 5}};
}

}

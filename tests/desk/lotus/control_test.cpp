#include "notes_fixture.h"

#include <stdexcept>

namespace {

using automation::Object;
using automation::Value;

class NotesControl : public NotesFixture {
protected:
    std::string refused(std::wstring_view request)
    {
        try {
            notes.ask(request);
        } catch (const std::exception& error) {
            return error.what();
        }
        return "not refused";
    }

    std::string badStore(std::wstring_view text)
    {
        try {
            notes.load(text);
        } catch (const std::exception& error) {
            return error.what();
        }
        return "not refused";
    }

    std::wstring stored() { return desk::storeText(notes.model().records()); }
};

constexpr std::wstring_view complete = LR"([notes]
UserName=CN=Anna Keller/O=Acme
Version=Release 7.0
MissingItem=text

[environment]
$Dialer=on
Location=Office = home

[database]
Server=CN=Mail1/O=Acme
File=books\\contacts.nsf
Title=Contacts
Open=False
FullTextIndex=True
Icon=True

[form]
Name=Person
Alias=P
Title=FullName
Field=FullName
Field=Age:number

[view]
Name=People
Alias=ByName
Key=FullName
Form=Person
Default=True

[document]
@NoteID=A1C
@UniversalID=0123456789ABCDEF0123456789ABCDEF
@Created=2023-03-15 06:00:00
@Modified=2023-03-16 07:00:00
Form=Person
FullName=Ann\nAbel
Phone=1
Phone+=2
Phone=3
Age:number=35.5
Born:date=1980-02-29 00:00:00
Born:date+=1981-01-01 00:00:00
Body:richtext=x
)";

}

TEST_F(NotesControl, Store_IsWrittenAsItWasRead)
{
    notes.load(complete);
    EXPECT_EQ(stored(), complete);
}

TEST_F(NotesControl, DocumentsWithoutIdentifiers_GetTheSameOnesEachTime)
{
    notes.load(books);
    const std::wstring before = stored();
    EXPECT_NE(before.find(L"@NoteID=8FA\n"), std::wstring::npos);
    notes.load(before);
    EXPECT_EQ(stored(), before);
    const std::wstring universal = person(L"Durand").get(L"UniversalID").text();
    notes.load(books);
    EXPECT_EQ(person(L"Durand").get(L"UniversalID").text(), universal);
}

TEST_F(NotesControl, BadStore_IsRefusedWithItsLine_AndChangesNothing)
{
    EXPECT_EQ(badStore(L"[potato]\n"), "line 1: [potato] is no kind of record");
    EXPECT_EQ(badStore(L"[document]\nA=b\n"), "line 1: [document] stands before the first [database]");
    EXPECT_EQ(badStore(L"[database]\nTitle=x\n"), "line 1: [database] has no File");
    EXPECT_EQ(badStore(L"[database]\nFile=x\nPath=y\n"), "line 1: [database] has no field \"Path\"");
    EXPECT_EQ(badStore(L"[database]\nFile=x\nOpen=no\n"), "line 1: [database] neither True nor False");
    EXPECT_EQ(badStore(L"[database]\nFile=x\n\n[database]\nFile=X.nsf\n"), "line 4: [database] is there twice");
    EXPECT_EQ(badStore(L"[database]\nFile=x\n[view]\nKey=K\n"), "line 3: [view] has no Name");
    EXPECT_EQ(badStore(L"[database]\nFile=x\n[document]\nA:number=b\n"), "line 3: [document] \"b\" is no number");
    EXPECT_EQ(badStore(L"[database]\nFile=x\n[document]\nA:time=b\n"),
              "line 3: [document] \"time\" is none of the types text, number, date, richtext");
    EXPECT_EQ(badStore(L"[database]\nFile=x\n[document]\nA+=b\n"),
              "line 3: [document] \"A+\" does not follow its first value");
    EXPECT_EQ(badStore(L"[database]\nFile=x\n[document]\n@NoteID=2\n[document]\n@NoteID=2\n"),
              "line 5: [document] the NoteID is used twice");
    EXPECT_EQ(badStore(L"[database]\nFile=x\n[document]\n@Place=2\n"), "line 3: [document] has no field \"@Place\"");
    EXPECT_TRUE(person(L"Durand"));
}

TEST_F(NotesControl, DatabasesAndEnvironment_AreListed)
{
    notes.ask(L"available local.nsf off");
    EXPECT_EQ(notes.ask(L"databases"), L"CN=Mail1/OU=Paris/O=Acme!!books\\contacts.nsf\tContacts\t3\n"
                                       L"local.nsf\tLocal\t1\tclosed");
    EXPECT_EQ(notes.ask(L"environment"), L"$Dialer=on\nLocation=Office");
}

TEST_F(NotesControl, Documents_AreListedByDatabase_ThenWhatIsDisplayedUnsaved)
{
    EXPECT_EQ(notes.ask(L"documents local.nsf").substr(0, 40), L"[document]\n@Database=local.nsf\n@NoteID=8");
    const Object marc = person(L"Durand");
    workspace().get(L"EditDocument", {false, marc});
    EXPECT_EQ(notes.ask(L"documents").find(L"@Unsaved"), std::wstring::npos);
    marc.put(L"LastName", L"Duroc");
    const auto records = desk::parseStore(notes.ask(L"documents CN=Mail1/OU=Paris/O=Acme!!books\\contacts.nsf"));
    ASSERT_EQ(records.size(), 4u);
    EXPECT_EQ(*records[0].find(L"LastName"), L"Durand");
    EXPECT_EQ(records[3].fields[0].first, L"@Unsaved");
    EXPECT_EQ(*records[3].find(L"LastName"), L"Duroc");
    EXPECT_EQ(notes.ask(L"documents local.nsf").find(L"Duroc"), std::wstring::npos);
}

TEST_F(NotesControl, AddChangeDelete_ActOnSavedDocuments)
{
    const std::wstring id = notes.ask(L"add local.nsf\nForm=Person\nPhone=1\nPhone+=2\n");
    EXPECT_EQ(id.size(), 32u);
    EXPECT_EQ(notes.ask(L"change " + id + L"\nPhone=3\nCity=Rome"), L"ok");
    const std::wstring dump = notes.ask(L"documents local.nsf");
    EXPECT_NE(dump.find(L"Form=Person\nPhone=3\nCity=Rome\n"), std::wstring::npos) << desk::utf8(dump);
    EXPECT_EQ(notes.ask(L"delete " + id), L"ok");
    EXPECT_EQ(notes.ask(L"documents local.nsf").find(L"Rome"), std::wstring::npos);
    EXPECT_EQ(refused(L"delete " + id), "there is no document \"" + desk::utf8(id) + "\"");
    EXPECT_EQ(refused(L"add no.nsf\nA=b"), "there is no database \"no.nsf\"");
    EXPECT_EQ(refused(L"add local.nsf\n@NoteID=8F6"), "the identifier is used already");
    EXPECT_EQ(notes.changes(), 3);
}

TEST_F(NotesControl, UserOpensADocument_InACopyOfItsOwn)
{
    const Object marc = person(L"Durand");
    EXPECT_EQ(notes.ask(L"open 8F6@books\\contacts.nsf edit"), L"ok");
    EXPECT_TRUE(workspace().get(L"CurrentDocument").object().get(L"EditMode").isTrue());
    marc.put(L"FullName", L"Marc X");
    EXPECT_EQ(notes.ask(L"windows").substr(0, 11), L"Marc Durand");
    EXPECT_EQ(notes.ask(L"open 8F6@books\\contacts.nsf"), L"ok");
    EXPECT_FALSE(workspace().get(L"CurrentDocument").object().get(L"EditMode").isTrue());
    EXPECT_EQ(refused(L"open 8F6@books\\contacts.nsf write"), "open ID, or open ID edit");
    EXPECT_EQ(refused(L"open 777@books\\contacts.nsf"), "there is no document \"777@books\\contacts.nsf\"");
}

TEST_F(NotesControl, Windows_AreSavedAndClosedByTheUser)
{
    const Object made = contacts().get(L"CreateDocument").object();
    made.put(L"Form", L"Person");
    made.put(L"LastName", L"New");
    workspace().get(L"EditDocument", {true, made});
    workspace().get(L"EditDocument", {false, person(L"Durand")});
    EXPECT_EQ(notes.ask(L"close 8F6@books\\contacts.nsf"), L"ok");
    EXPECT_EQ(notes.ask(L"windows"), L"New Person\tPerson\tunsaved\tedit\tfront");
    EXPECT_EQ(notes.ask(L"save unsaved"), L"ok");
    EXPECT_TRUE(person(L"New"));
    EXPECT_EQ(refused(L"save unsaved"), "there is no window of this document");
    made.put(L"LastName", L"Newer");
    EXPECT_EQ(notes.ask(L"save-windows"), L"ok");
    EXPECT_TRUE(person(L"Newer"));
    EXPECT_EQ(notes.ask(L"windows"), L"");
    made.put(L"LastName", L"Newest");
    workspace().get(L"EditDocument", {true, made});
    EXPECT_EQ(notes.ask(L"close-windows"), L"ok");
    EXPECT_FALSE(person(L"Newest"));
}

TEST_F(NotesControl, Loading_ClosesTheWindows)
{
    workspace().get(L"EditDocument", {false, person(L"Durand")});
    notes.ask(L"show local.nsf");
    notes.load(books);
    EXPECT_EQ(notes.ask(L"windows"), L"");
    EXPECT_FALSE(workspace().get(L"CurrentDatabase").object());
}

TEST_F(NotesControl, BadRequests_AreRefused)
{
    EXPECT_EQ(refused(L"missing something"), "missing array, or text");
    EXPECT_EQ(refused(L"arrays other"), "arrays variant, or typed");
    EXPECT_EQ(refused(L"server-name"), "server-name on, or off");
    EXPECT_EQ(refused(L"index local.nsf stale"), "the database has no full-text index");
    EXPECT_EQ(refused(L"index local.nsf old"), "index DATABASE stale, or updated");
    EXPECT_EQ(refused(L"available local.nsf"), "available DATABASE on, or off");
    EXPECT_EQ(refused(L"show local.nsf People"), "there is no such view");
    EXPECT_EQ(refused(L"show no.nsf"), "there is no database \"no.nsf\"");
    EXPECT_EQ(refused(L"dance"), "unknown command");
    EXPECT_EQ(refused(L"add local.nsf\n[document]\nA=b"), "one document at a time");
    EXPECT_EQ(notes.ask(L"front"), L"ok");
    EXPECT_EQ(notes.ask(L"back"), L"ok");
}
